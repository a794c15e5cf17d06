#include "contents/parts/PartLines.h"

#include <algorithm>
#include <stdexcept>

#include "contents/AmountFields.h"
#include "contents/Changing.h"
#include "contents/EstimateTotals.h"
#include "frame/Text.h"

// The parts list and its rows in the database.
namespace lantos {

void PartLines::LoadPartList() {
  Recordset& parts = bench_.Data().PartsTable(bench_.Number());
  ClearPartList();
  for (; !parts.Eof(); parts.MoveNext()) {
    lines_.push_back(ReadPartLine(parts));
    bench_.estimate.PartList().AddItem(PartRow(lines_.back()), lines_.back().cost);
  }
  parts.Close();
}

void PartLines::ClearPartList() {
  lines_.clear();
  bench_.estimate.PartList().Clear();
}

void PartLines::ReloadList(std::string_view selected) {
  LoadPartList();
  for (std::size_t i = 0; i < lines_.size() && !selected.empty(); ++i) {
    if (!EqualsIgnoringCase(lines_[i].partNumber, selected)) continue;
    bench_.estimate.PartList().SelectRow(static_cast<int>(i));
    return;
  }
}

void PartLines::Make(const std::function<Changed()>& change) {
  const std::int64_t sumBefore = PartsSum(lines_);
  Changed changed = Changed::Nothing;
  ChangeOrGoBack([&] { changed = change(); },
                 [&] {
                   LoadPartList();
                   if (PartsSum(lines_) != sumBefore) surcharge_.ApplySurcharge();
                   bench_.estimate.RefreshTotals();
                 });
  if (changed == Changed::Nothing) return;
  surcharge_.ApplySurcharge();
  bench_.estimate.RefreshTotals();
}

void PartLines::StorePart(const PartLine& entry) {
  PartLine line = entry;
  line.partNumber = Trim(line.partNumber);
  // The number goes into the search as it stands: one with an apostrophe can't be looked for.
  if (Contains(line.partNumber, "'")) {
    throw std::invalid_argument("The search for PartNumber = '" + line.partNumber +
                                "' can't be made: a part number must not hold an apostrophe.");
  }
  Recordset parts = bench_.Data().PartsTable(bench_.Number());
  while (!parts.Eof() && !EqualsIgnoringCase(Trim(parts.Text("PartNumber")), line.partNumber)) parts.MoveNext();
  if (parts.Eof()) {
    line.total = Product(line.quantity, line.price);
    bench_.Data().AddPartRow(bench_.Number(), RowOf(line));
    return;
  }
  // A second entry of a number adds its quantity, and its prices hold for the whole line.
  line.quantity = Sum(line.quantity, parts.Long("Quantity"));
  line.total = Product(line.quantity, line.price);
  bench_.Data().UpdatePartRow(bench_.Number(), parts.Text("PartNumber"), RowOf(line));
}

void PartLines::AddPartLine(const PartLine& entry, Choosing choosing) {
  StorePart(entry);
  ReloadList(choosing == Choosing::ItsRow ? Trim(entry.partNumber) : std::string());
}

void PartLines::RemovePartLine(int row) {
  const auto place = lines_.begin() + row;
  bench_.Data().DeletePart(bench_.Number(), place->partNumber);
  lines_.erase(place);
  bench_.estimate.PartList().RemoveItem(row);
}

std::vector<int> PartLines::SelectedRows() const {
  std::vector<int> rows;
  const ui::ListBox& list = bench_.estimate.PartList();
  for (int row = 0; row < list.ListCount(); ++row) {
    if (list.Selected(row)) rows.push_back(row);
  }
  return rows;
}

}  // namespace lantos
