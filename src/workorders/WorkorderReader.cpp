#include <algorithm>
#include <limits>

#include "frame/Dates.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/FileNumber.h"
#include "records/Vehicles.h"
#include "workorders/WorkorderFields.h"
#include "workorders/WorkorderText.h"

namespace lantos {

namespace {

using namespace wotext;

std::string Cell(std::string_view row, const Column& column) { return Mid(row, column.position, column.width); }
std::int32_t NumberIn(std::string_view row, const Column& column) { return NumberInFile(Cell(row, column)); }

FileDate DateIn(std::string_view text) {
  const std::optional<DaySerial> day = ParseDate(TrimView(text));
  return day ? ToFileDate(*day) : 0;
}

// The entry whose key it is; null when there is none.
template <class Entry, std::size_t Count>
const Entry* FindKey(const Entry (&entries)[Count], const std::string& key) {
  const auto found = std::find_if(entries, entries + Count, [&](const Entry& entry) { return entry.key == key; });
  return found == entries + Count ? nullptr : found;
}

// Up to the mark, which is taken off the text; everything when there is none.
std::string TakeUpTo(std::string_view& text, char mark) {
  const std::size_t end = text.find(mark);
  std::string taken(text.substr(0, end));
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return taken;
}

WoExtraLine ReadExtra(const std::string& row) {
  WoExtraLine line;
  line.Vendor = CutToField(Cell(row, extra::Vendor), WoExtraLine::kVendorWidth);
  line.Invoice = CutToField(Cell(row, extra::Invoice), WoExtraLine::kInvoiceWidth);
  const std::string taxable = Cell(row, extra::Taxable);
  line.Taxable = taxable.empty() ? ' ' : taxable[0];
  line.Cost = NumberIn(row, extra::Cost);
  line.Price = NumberIn(row, extra::Price);
  line.Description = TrimNull(Mid(row, extra::kDescription));
  return line;
}

}  // namespace

struct WorkorderReader::Sections {
  struct OfKeys {
    std::string_view heading;
    void (WorkorderReader::*take)(const std::string& key, const std::string& value);
  };
  static constexpr OfKeys kOfKeys[] = {
      {"[Totals]", &WorkorderReader::TakeTotalsKey},
      {"[Customer]", &WorkorderReader::TakeCustomerKey},
      {"[Vehicle]", &WorkorderReader::TakeVehicleKey},
  };
  struct OfRows {
    std::string_view heading;
    void (WorkorderReader::*take)(const std::string& row);
    void (*begin)(WorkorderReader&);  // a section that comes again is read from its first entry
  };
  static constexpr OfRows kOfRows[] = {
      {"[Parts]", &WorkorderReader::TakePart, [](WorkorderReader& self) { self.workorder_.Parts.Clear(); }},
      {"[Labor]", &WorkorderReader::TakeLabor, [](WorkorderReader& self) { self.workorder_.Labor.Clear(); }},
      {"[Sublets]", &WorkorderReader::TakeSublet, [](WorkorderReader& self) { self.workorder_.Sublets.Clear(); }},
      {"[Waste]", &WorkorderReader::TakeWaste, [](WorkorderReader& self) { self.workorder_.Waste.Clear(); }},
      {"[Credits]", &WorkorderReader::TakeCredit, [](WorkorderReader& self) { self.workorder_.Credits.Clear(); }},
      {"[Notes]", &WorkorderReader::TakeNote, [](WorkorderReader& self) { self.notes_ = 0; }},
  };
};

void WorkorderReader::ParseWoSection(std::string& line) {
  const std::size_t end = std::min(line.find(']'), line.size() - (line.empty() ? 0 : 1));
  const std::string heading = line.empty() ? line : line.substr(0, end + 1);
  if (heading == kWorkorderHeading) {
    line.erase(0, heading.size());  // the first key may stand right behind the heading
    if (line.empty()) lines_.Next(line);
    return ReadHeader(line);
  }
  for (const Sections::OfKeys& section : Sections::kOfKeys) {
    if (heading != section.heading) continue;
    lines_.Next(line);
    return ReadKeys(line, section.take);
  }
  for (const Sections::OfRows& section : Sections::kOfRows) {
    if (heading != section.heading) continue;
    section.begin(*this);
    return ReadRows(line, section.take);
  }
  if (heading == "[Check List]") return LoadCheckListValues(line);
  line.clear();
}

void WorkorderReader::ReadHeader(std::string& line) { ReadKeys(line, &WorkorderReader::TakeHeaderKey); }

void WorkorderReader::ReadKeys(std::string& line,
                               void (WorkorderReader::*take)(const std::string& key, const std::string& value)) {
  for (bool more = true; more && !line.empty(); more = lines_.Next(line)) {
    std::string key, value;
    SplitKeyValue(line, key, value);
    (this->*take)(key, value);
  }
}

void WorkorderReader::ReadRows(std::string& line, void (WorkorderReader::*take)(const std::string& row)) {
  while (lines_.Next(line) && !line.empty()) (this->*take)(line);
}

void WorkorderReader::TakeHeaderKey(const std::string& key, const std::string& value) {
  if (key == "WorkorderNumber") workorder_.WorkorderNumber = NumberInFile(value);
  if (const HeaderKey* known = FindKey(kHeaderKeys, key)) {
    workorder_.*known->field = known->limit > 0 ? Left(value, known->limit) : TrimNull(value);
  }
}

void WorkorderReader::TakePaymentMethod(ByteField field, const std::string& name) {
  const PaymentMethodTable& names = around_.options.PaymentMethodNames;
  const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& each) {
    return LeftJustify(each, kPaymentMethodWidth) == LeftJustify(name, std::max(name.size(), kPaymentMethodWidth));
  });
  if (found != names.end()) workorder_.Totals.Put(field, static_cast<std::uint8_t>(found - names.begin()));
}

void WorkorderReader::TakeTotalsKey(const std::string& key, const std::string& value) {
  WoTotals& totals = workorder_.Totals;
  if (const TotalsKey* known = FindKey(kTotalsKeys, key)) {
    totals.Put(known->field, known->kind == Total::Date ? DateIn(value) : NumberInFile(value));
    if (key == "WorkorderTotal") workorder_.AmountDue = totals.Get(wototals::WorkorderTotal);
  } else if (key == "PaymentMethod") {
    TakePaymentMethod(wototals::PaymentMethod, value);
  } else if (key == "PaymentComment") {
    workorder_.PaymentComment = CutToField(value, kPaymentCommentWidth);
  } else if (key.starts_with("Split")) {
    TakeSplitKey(key, value);
  }
}

void WorkorderReader::TakeSplitKey(const std::string& key, const std::string& value) {
  WoTotals& totals = workorder_.Totals;
  const std::size_t digits = key.find_last_not_of("0123456789") + 1;
  const std::string_view name = std::string_view(key).substr(0, digits);
  const std::string_view number = std::string_view(key).substr(digits);
  std::size_t row = 0;
  while (row < wototals::kSplits && number != std::to_string(row + 1)) ++row;
  if (row == wototals::kSplits) return;
  if (name == "SplitType") TakePaymentMethod(wototals::SplitType(row), value);
  if (name == "SplitDate") totals.Put(wototals::SplitDate(row), DateIn(value));
  if (name != "SplitAmount") return;
  const Cents amount = NumberInFile(value);
  totals.Put(wototals::SplitAmount(row), amount);
  const std::int64_t due = static_cast<std::int64_t>(workorder_.AmountDue) - amount;
  workorder_.AmountDue = RoundHalfEven(static_cast<double>(due));
}

void WorkorderReader::TakeCustomerKey(const std::string& key, const std::string& value) {
  CustomerRecord& record = workorder_.Customer;
  if (key == "CustomerNumber") {
    const std::int32_t number = NumberInFile(value);
    if (liveCustomer) liveCustomer(number, record);
    record.Put(customer::Number, number);
  } else if (const TextKey* known = FindKey(kCustomerKeys, key)) {
    record.Put(known->field, TrimNull(value));
  }
}

void WorkorderReader::TakeVehicleKey(const std::string& key, const std::string& value) {
  VehicleRecord& record = workorder_.Vehicle;
  const TextKey* known = FindKey(kVehicleKeys, key);
  if (known == nullptr) known = FindKey(kVehicleComments, key);
  if (known != nullptr) record.Put(known->field, TrimNull(value));
  if (key == "Mileage") record.Put(vehicle::Mileage, NumberInFile(value));
  if (key == "Date") record.Put(vehicle::Date, DateIn(value));
  if (key == "OrigMileage") record.Put(vehicle::FirstMileage, NumberInFile(value));
  if (key == "OrigDate") record.Put(vehicle::FirstDate, DateIn(value));
}

void WorkorderReader::TakePart(const std::string& row) {
  WoPartLine line;
  line.PartNumber = CutToField(Cell(row, part::PartNumber), WoPartLine::kNumberWidth);
  line.Description = CutToField(Cell(row, part::Description), WoPartLine::kDescriptionWidth);
  line.Quantity = static_cast<std::int16_t>(std::clamp<std::int32_t>(NumberIn(row, part::Quantity),
                                                                     std::numeric_limits<std::int16_t>::min(),
                                                                     std::numeric_limits<std::int16_t>::max()));
  line.Cost = NumberIn(row, part::Cost);
  line.Price = NumberIn(row, part::Price);
  line.List = NumberIn(row, part::List);
  workorder_.Parts.Add(std::move(line));
}

void WorkorderReader::TakeLabor(const std::string& row) {
  WoLaborLine line;
  std::string_view rest = row;
  if (around_.options.LaborDateOption) {
    line.Date = Trim(Left(rest, labor::kDateWidth));
    rest.remove_prefix(std::min(labor::kDateWidth, rest.size()));
  }
  line.Mechanic = NumberIn(rest, labor::Mechanic);
  line.Hours = NumberIn(rest, labor::Hours);
  line.Rate = NumberIn(rest, labor::Rate);
  line.Commission = NumberIn(rest, labor::Commission);
  line.Total = NumberIn(rest, labor::Total);
  rest.remove_prefix(std::min(labor::kDescription - 1, rest.size()));
  const bool whole = std::count(rest.begin(), rest.end(), kLineMark) >= static_cast<std::ptrdiff_t>(line.Desc.size());
  for (std::string& description : line.Desc) {
    description = CutToField(TakeUpTo(rest, kLineMark), WoLaborLine::kDescWidth);
  }
  // An older program ends its lines with the description.
  if (whole) {
    line.FollowupMiles = NumberIn(rest, labor::FollowupMiles);
    line.FollowupDays = NumberIn(rest, labor::FollowupDays);
    line.FollowupDate = NumberIn(rest, {labor::FollowupDate.position, labor::FollowupDate.width + 1});
    if (around_.options.RepairCodeOption) line.RepairCode = TrimNull(Mid(rest, labor::kRepairCode));
  }
  workorder_.Labor.Add(std::move(line));
}

void WorkorderReader::TakeSublet(const std::string& row) { workorder_.Sublets.Add(ReadExtra(row)); }
void WorkorderReader::TakeWaste(const std::string& row) { workorder_.Waste.Add(ReadExtra(row)); }

void WorkorderReader::TakeCredit(const std::string& row) {
  WoCreditLine line;
  line.Amount = NumberIn(row, credit::Amount);
  const std::string text = Mid(row, credit::kText);
  std::string_view rest = text;
  for (std::string& each : line.Text) each = TrimNull(TakeUpTo(rest, kLineMark));
  workorder_.Credits.Add(std::move(line));
}

// What is beyond the last note that there is room for is passed over.
void WorkorderReader::TakeNote(const std::string& row) {
  if (notes_ == kMaxNotes) return;
  std::string_view rest = row;
  for (std::string& line : workorder_.Notes[notes_]) line = TrimNull(TakeUpTo(rest, kLineMark));
  ++notes_;
}

// To the end of the text, or to the next work order of the archive: empty lines are no end here.
void WorkorderReader::LoadCheckListValues(std::string& line) {
  while (lines_.Next(line) && !line.starts_with(kWorkorderHeading)) {
    if (!TrimNull(line).empty()) TakeCheckListRow(line);
  }
}

void TellUnknownEntries(ui::Desktop& desktop, const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    text += (text.empty() ? "" : "\r") + ("Couldn't locate " + name + " in checklist.  Item skipped.");
  }
  if (!text.empty()) desktop.Tell(text, "LoadCheckListValues");
}

void WorkorderReader::TakeCheckListRow(const std::string& row) {
  CheckListTable& table = around_.checkList;
  table.ChecklistLoaded = true;
  const bool isCategory = row.front() == '[';
  std::string_view rest = row;
  const std::string name = isCategory
                               ? row.substr(0, row.find(']') == std::string::npos ? row.size() : row.find(']') + 1)
                               : Trim(TakeUpTo(rest, ','));
  const int index = table.Find(name);
  if (index < 0) {
    if (unknownEntry) return unknownEntry(name);
    TellUnknownEntries(desktop_, {name});
    return;
  }
  ChecklistItem& item = table.items[static_cast<std::size_t>(index)];
  item.Used = true;
  if (isCategory) return;
  item.Service = Trim(TakeUpTo(rest, ','));
  item.DueBackMiles = Trim(TakeUpTo(rest, ','));
}

}  // namespace lantos
