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
  lines_ = std::move(lines);
  offScreen_.clear();
  bench_.estimate.PartList().Clear();
  for (const PartLine& line : lines_) bench_.estimate.PartList().AddItem(PartRow(line), line.cost);
}

// Where no estimate is on show the lines of the next one follow.
void PartLines::ClearPartList() {
  std::set<std::string> offScreen;
  if (bench_.Number() != 0) {
    offScreen = offScreen_;
    for (const PartLine& line : lines_) offScreen.insert(line.partNumber);
  }
  ShowLines({});
  offScreen_ = std::move(offScreen);
}

PartLines::Stored PartLines::Store(const std::function<void()>& change) {
  Stored stored;
  const auto write = [&] {
    change();
    stored.lines = ReadLines();
  };
  const auto store = [&] { stored.refusal = surcharge_.StoreWithSurcharge(write, Surcharge::PartsCounted::All); };
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

std::optional<LineValues> PartLines::ValuesStored(const std::string& number) {
  return StoredValues(
      bench_.Data().PartsTable(bench_.Number()),
      [&number](const Recordset& row) { return Trim(row.Text("PartNumber")) == number; },
      [](const Recordset& row) { return ValuesOf(ReadPartLine(row)); });
}

// All of them or none.
void PartLines::RemovePartLines(const std::vector<int>& rowsInOrder) {
  std::vector<PartLine> left = lines_;
  std::string what = rowsInOrder.size() == 1 ? "The part" : "The parts";
  for (const int row : rowsInOrder) what += " \"" + lines_.at(static_cast<std::size_t>(row)).partNumber + "\"";
  const auto remove = [&] {
    left = lines_;
    for (auto row = rowsInOrder.rbegin(); row != rowsInOrder.rend(); ++row) {
      const auto place = left.begin() + *row;
      ListedLine(ValuesOf(*place)).Expect(ValuesStored(place->partNumber));
      bench_.Data().DeletePart(bench_.Number(), place->partNumber);
      left.erase(place);
    }
  };
  Surcharge::Refusal refusal;
  const auto reload = [this] { FollowDatabase(); };
  const auto transaction = [&] { StoreOrReload([&] { refusal = surcharge_.StoreWithSurcharge(remove); }, reload); };
  what += rowsInOrder.size() == 1 ? " was" : " were";
  if (!RemoveAsListed(bench_.shop.desktop, kRemoveTitle, what, {transaction, reload})) return;
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
