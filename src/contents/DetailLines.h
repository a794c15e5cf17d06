#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/Recordset.h"
#include "workorders/Workorder.h"

namespace lantos {

// The rows that one labor line gives in listLabor: the number row, then one row for each line of the description that
// isn't empty. Only the number row begins without a blank.
std::vector<std::string> LaborRows(const WoLaborLine& line);
// The line of a row of Labors, its text split.
WoLaborLine ReadLaborLine(const Recordset& row);

// Read back from the rows: dollars and hours with the two decimals shown.
double TotalOfRow(std::string_view row);       // the number behind the last blank
double HoursOfLaborRow(std::string_view row);  // from character 8 up to the next blank
Cents CentsOfRow(std::string_view row);        // the number behind the last blank

}  // namespace lantos
