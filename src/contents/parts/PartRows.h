#pragma once

#include <string>
#include <vector>

#include "contents/ListedLine.h"
#include "contents/PartLine.h"
#include "estimatedb/de.h"
#include "estimatedb/engine/Recordset.h"

namespace lantos {

// A row of Parts; what is null there is 0.
PartLine ReadPartLine(const Recordset& row);
// Of all rows, from the current one on.
std::vector<std::string> PartNumbers(Recordset rows);
de::Part RowOf(const PartLine& part);
// All of a row but its number.
LineValues ValuesOf(const PartLine& part);
inline constexpr std::size_t kPartDescriptionColumn = 20;  // of the row
// The row that one part gives in listParts, in fixed columns. Its item data is the cost.
std::string PartRow(const PartLine& part);

}  // namespace lantos
