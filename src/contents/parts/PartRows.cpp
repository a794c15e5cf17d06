#include "contents/parts/PartRows.h"

#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

PartLine ReadPartLine(const Recordset& row) {
  PartLine part;
  part.partNumber = Trim(row.Text("PartNumber"));
  part.description = row.Text("PartDesc");
  part.quantity = row.Long("Quantity");
  part.price = row.Long("PartPrice");
  part.total = row.Long("PartTotal");
  part.cost = row.Long("PartCost");
  part.list = row.Long("PartList");
  return part;
}

std::vector<std::string> PartNumbers(Recordset rows) {
  std::vector<std::string> numbers;
  for (; !rows.Eof(); rows.MoveNext()) numbers.push_back(ReadPartLine(rows).partNumber);
  return numbers;
}

de::Part RowOf(const PartLine& part) {
  return {part.partNumber, part.description, part.quantity, part.price, part.total, part.cost, part.list};
}

LineValues ValuesOf(const PartLine& part) {
  return {{"Description", part.description},           {"Quantity", std::to_string(part.quantity)},
          {"Cost", FormatHundredths(part.cost)},       {"Sale Price", FormatHundredths(part.price)},
          {"List Price", FormatHundredths(part.list)}, {"Total", FormatHundredths(part.total)}};
}

std::string PartRow(const PartLine& part) {
  return LeftJustify(part.partNumber, 21) + " " + LeftJustify(part.description, kPartDescriptionColumn) + " " +
         RightJustify(std::to_string(part.quantity), 5) + " " + RightJustify(FormatHundredths(part.price), 7) + " " +
         RightJustify(FormatHundredths(part.total), 7);
}

}  // namespace lantos
