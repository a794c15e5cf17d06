#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/Recordset.h"

namespace lantos {

// A labor description lies in the database as up to eight lines joined by tabs.
inline constexpr std::size_t kLaborTextLines = 8;

// The lines in order, trimmed; a text with fewer tabs gives fewer lines.
std::vector<std::string> SplitLaborText(std::string_view text);

// The rows that one labor line gives in listLabor: the number row, then one row for each line of the description that
// isn't empty. Only the number row begins without a blank.
std::vector<std::string> LaborRows(const Recordset& labor);
// The row that one part gives in listParts, in fixed columns.
std::string PartRow(const Recordset& part);

// Read back from the rows: dollars and hours with the two decimals shown.
double TotalOfRow(std::string_view row);       // the number behind the last blank
double HoursOfLaborRow(std::string_view row);  // from character 8 up to the next blank

}  // namespace lantos
