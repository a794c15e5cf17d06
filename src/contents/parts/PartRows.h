#pragma once

#include <string>

#include "estimatedb/de.h"
#include "estimatedb/engine/Recordset.h"
#include "frame/Types.h"

namespace lantos {

// A part of an estimate; amounts are of one unit.
struct PartLine {
  std::string partNumber;
  std::string description;
  std::int32_t quantity = 0;
  Cents price = 0;
  Cents total = 0;
  Cents cost = 0;
  Cents list = 0;
};
// A row of Parts; what is null there is 0.
PartLine ReadPartLine(const Recordset& row);
de::Part RowOf(const PartLine& part);
inline constexpr std::size_t kPartDescriptionColumn = 20;  // of the row
// The row that one part gives in listParts, in fixed columns. Its item data is the cost.
std::string PartRow(const PartLine& part);

}  // namespace lantos
