#include "contents/parts/PartLines.h"

#include <algorithm>

#include "contents/AmountFields.h"
#include "contents/Changing.h"
#include "contents/EstimateTotals.h"
#include "frame/PlainWords.h"
#include "frame/Text.h"

// The parts list and its rows in the database.
namespace lantos {

void PartLines::LoadPartList() { ShowLines(ReadLines()); }

std::vector<PartLine> PartLines::ReadLines() {
  std::vector<PartLine> lines;
  Recordset& parts = bench_.Data().PartsTable(bench_.Number());
  for (; !parts.Eof(); parts.MoveNext()) lines.push_back(ReadPartLine(parts));
  parts.Close();
  return lines;
}

void PartLines::ShowLines(std::vector<PartLine> lines) {
  ClearPartList();
  lines_ = std::move(lines);
  for (const PartLine& line : lines_) bench_.estimate.PartList().AddItem(PartRow(line), line.cost);
}

void PartLines::ClearPartList() {
  lines_.clear();
  bench_.estimate.PartList().Clear();
}

PartLines::Stored PartLines::Store(const std::function<void()>& change, SurchargeComes surcharge) {
  Stored stored;
  const auto write = [&] {
    change();
    stored.lines = ReadLines();
    Surcharge::Sums sums = surcharge_.SumsOnShow();
    sums.parts = PartsSum(stored.lines);
    return sums;
  };
  const auto store = [&] {
    if (surcharge == SurchargeComes::WithIt) {
      stored.refusal = surcharge_.StoreWithSurcharge(write);
    } else {
      bench_.Data().Connection().Together(write);
    }
  };
  StoreOrReload(store, [this] { FollowDatabase(); });
  return stored;
}

void PartLines::FollowDatabase() {
  const std::int64_t sumBefore = PartsSum(lines_);
  LoadPartList();
  if (PartsSum(lines_) != sumBefore) surcharge_.ApplySurcharge();
  bench_.estimate.RefreshTotals();
}

void PartLines::Show(Stored stored, std::string_view selected) {
  ShowLines(std::move(stored.lines));
  const auto place = std::find_if(lines_.begin(), lines_.end(), [selected](const PartLine& line) {
    return !selected.empty() && EqualsIgnoringCase(line.partNumber, selected);
  });
  if (place != lines_.end()) bench_.estimate.PartList().SelectRow(static_cast<int>(place - lines_.begin()));
  ShowWhatFollows(stored.refusal);
}

void PartLines::ShowWhatFollows(const Surcharge::Refusal& refusal) {
  surcharge_.TellRefusal(refusal);
  bench_.estimate.RefreshTotals();
}

void PartLines::StorePart(const PartLine& entry) {
  PartLine line = entry;
  line.partNumber = Trim(line.partNumber);
  // The number goes into the search as it stands: one with an apostrophe can't be looked for.
  if (Contains(line.partNumber, "'")) {
    throw WordedError(
        "The search for PartNumber = '" + line.partNumber + "' can't be made.",
        "The part number \"" + line.partNumber + "\" can't be stored: a part number must not hold an apostrophe.");
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
  Show(Store([&] { StorePart(entry); }), choosing == Choosing::ItsRow ? Trim(entry.partNumber) : std::string());
}

// All of them or none. The surcharge counts what is left of the list.
void PartLines::RemovePartLines(const std::vector<int>& rowsInOrder) {
  std::vector<PartLine> left = lines_;
  const auto remove = [&] {
    for (auto row = rowsInOrder.rbegin(); row != rowsInOrder.rend(); ++row) {
      const auto place = left.begin() + *row;
      bench_.Data().DeletePart(bench_.Number(), place->partNumber);
      left.erase(place);
    }
    Surcharge::Sums sums = surcharge_.SumsOnShow();
    sums.parts = PartsSum(left);
    return sums;
  };
  Surcharge::Refusal refusal;
  StoreOrReload([&] { refusal = surcharge_.StoreWithSurcharge(remove); }, [this] { FollowDatabase(); });
  lines_ = std::move(left);
  for (auto row = rowsInOrder.rbegin(); row != rowsInOrder.rend(); ++row) bench_.estimate.PartList().RemoveItem(*row);
  ShowWhatFollows(refusal);
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
