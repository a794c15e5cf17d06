#pragma once

#include <string>
#include <vector>

#include "contents/ListedLine.h"
#include "estimatedb/engine/Recordset.h"
#include "workorders/Workorder.h"

namespace lantos {

// The rows that one labor line gives in listLabor: the number row, then one row for each line of the description that
// isn't empty. Only the number row begins without a blank.
std::vector<std::string> LaborRows(const WoLaborLine& line);
// The line of a row of Labors, its text split.
WoLaborLine ReadLaborLine(const Recordset& row);
// What a row of Labors has of the line, whether it was read from there or is to be stored.
LineValues ValuesOf(const WoLaborLine& line);

}  // namespace lantos
