#include <algorithm>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "workorders/RunningTotals.h"
#include "workorders/WorkorderFields.h"
#include "workorders/WorkorderText.h"

namespace lantos {

namespace {

using namespace wotext;

// The picture "########": a digit that would be a leading zero is dropped, so 0 is nothing at all.
std::string Picture(std::int64_t value) { return value == 0 ? std::string() : std::to_string(value); }

// Cut at the first NUL, as every text is.
std::string RightTrim(std::string_view text) {
  const std::string_view cut = text.substr(0, text.find('\0'));
  return std::string(cut.substr(0, cut.find_last_not_of(' ') + 1));
}

std::string DateText(FileDate date) { return FormatDate(FromFileDate(date)); }

// The name of a payment method in its field.
std::string MethodName(const ShopOptions& options, std::uint8_t index) {
  const std::string name = index < kPaymentMethodCount ? options.PaymentMethodNames[index] : std::string();
  return LeftJustify(name, kPaymentMethodWidth);
}

class Writer {
 public:
  Writer(Workorder& workorder, const TextSurroundings& around) : workorder_(workorder), around_(around) {}

  std::vector<std::string> Lines() {
    Section("[Workorder]", [this] { Header(); });
    Section("[Totals]", [this] { Totals(); });
    Section("[Customer]", [this] { Customer(); });
    if (!workorder_.Vehicle.View(vehicle::Make).empty()) Section("[Vehicle]", [this] { Vehicle(); });
    Section("[Parts]", [this] { workorder_.Parts.ForEach([this](const WoPartLine& line) { Part(line); }); });
    Section("[Labor]", [this] { workorder_.Labor.ForEach([this](const WoLaborLine& line) { Labor(line); }); });
    Section("[Sublets]", [this] { workorder_.Sublets.ForEach([this](const WoExtraLine& line) { Extra(line); }); });
    Section("[Waste]", [this] { workorder_.Waste.ForEach([this](const WoExtraLine& line) { Extra(line); }); });
    Section("[Credits]", [this] { workorder_.Credits.ForEach([this](const WoCreditLine& line) { Credit(line); }); });
    Section("[Notes]", [this] { Notes(); });
    Section("[Check List]", [this] { CheckList(); });
    // A line end inside of a text would end the line, or the section.
    for (std::string& line : lines_) {
      std::replace_if(
          line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    }
    return std::move(lines_);
  }

 private:
  template <class Body>
  void Section(std::string_view heading, Body body) {
    lines_.emplace_back(heading);
    body();
    lines_.emplace_back();
  }

  void Key(std::string_view key, std::string_view value) {
    lines_.push_back(std::string(key) + "=" + std::string(value));
  }
  void KeyUnlessBlank(std::string_view key, std::string_view value) {
    if (const std::string text = TrimNull(value); !text.empty()) Key(key, text);
  }
  template <std::size_t Count, class Source>
  void TextKeys(const TextKey (&keys)[Count], const Source& record) {
    for (const TextKey& key : keys) KeyUnlessBlank(key.key, record.View(key.field));
  }

  void Header() {
    Key("WorkorderNumber", FormatZeros(workorder_.WorkorderNumber, 6));
    for (const HeaderKey& key : kHeaderKeys) {
      const std::string& value = workorder_.*key.field;
      if (key.blank == Blank::IsWritten) {
        Key(key.key, RightTrim(value));
      } else {
        KeyUnlessBlank(key.key, Left(Trim(value), key.limit));
      }
    }
  }

  void Totals() {
    SumSublets(workorder_);
    SumWaste(workorder_);
    SumCredits(workorder_);
    const WoTotals& totals = workorder_.Totals;
    for (const TotalsKey& key : kTotalsKeys) {
      const std::int32_t value = totals.Get(key.field);
      const bool isDate = key.kind == Total::Date;
      if (isDate ? value > 0 : value != 0) Key(key.key, isDate ? DateText(value) : Picture(value));
    }
    const std::string method = MethodName(around_.options, totals.Get(wototals::PaymentMethod));
    Key("PaymentMethod", method);
    KeyUnlessBlank("PaymentComment", workorder_.PaymentComment);
    if (TrimView(method) == kSplitPayment) Splits();
  }

  void Splits() {
    WoTotals& totals = workorder_.Totals;
    if (totals.Get(wototals::SplitDate(0)) == 0) totals.Put(wototals::SplitDate(0), ToFileDate(around_.today));
    for (std::size_t row = 0; row < wototals::kSplits; ++row) {
      const std::string number = std::to_string(row + 1);
      const FileDate date = totals.Get(wototals::SplitDate(row));
      Key("SplitType" + number, MethodName(around_.options, totals.Get(wototals::SplitType(row))));
      Key("SplitAmount" + number, std::to_string(totals.Get(wototals::SplitAmount(row))));
      Key("SplitDate" + number, date == 0 ? std::string(10, ' ') : DateText(date));
    }
  }

  void Customer() {
    Key("CustomerNumber", Picture(workorder_.Customer.Get(customer::Number)));
    TextKeys(kCustomerKeys, workorder_.Customer);
  }

  void Vehicle() {
    const VehicleRecord& record = workorder_.Vehicle;
    TextKeys(kVehicleKeys, record);
    Key("Mileage", Picture(record.Get(vehicle::Mileage)));
    if (record.Get(vehicle::Date) != 0) Key("Date", DateText(record.Get(vehicle::Date)));
    TextKeys(kVehicleComments, record);
    const std::int32_t mileage = record.Get(vehicle::FirstMileage);
    const FileDate date = record.Get(vehicle::FirstDate);
    Key("OrigMileage", Picture(mileage));
    Key("OrigDate", date == 0 || mileage == 0 ? std::string() : DateText(date));
  }

  void Part(const WoPartLine& line) {
    if (TrimView(line.PartNumber).empty()) return;
    lines_.push_back(LeftJustify(TrimNull(line.PartNumber), part::PartNumber.width) +
                     LeftJustify(TrimNull(line.Description), part::Description.width) +
                     RightJustify(Picture(line.Quantity), part::Quantity.width) +
                     RightJustify(Picture(line.Cost), part::Cost.width) +
                     RightJustify(Picture(line.Price), part::Price.width) +
                     RightJustify(Picture(line.List), part::List.width));
  }

  void Labor(const WoLaborLine& line) {
    if (TrimView(line.Desc[0]).empty()) return;
    std::string text;
    if (around_.options.LaborDateOption) text = LeftJustify(TrimNull(line.Date), labor::kDateWidth);
    text += FormatZeros(line.Mechanic, static_cast<int>(labor::Mechanic.width)) +
            RightJustify(Picture(line.Hours), labor::Hours.width) +
            RightJustify(Picture(line.Rate), labor::Rate.width) +
            RightJustify(std::to_string(line.Commission), labor::Commission.width) +
            RightJustify(Picture(line.Total), labor::Total.width);
    for (const std::string& description : line.Desc) text += TrimNull(description) + kLineMark;
    text = RightTrim(text);
    const bool none = line.FollowupMiles < 1 && line.FollowupDays < 1 && line.FollowupDate == 0;
    if (none) {
      text += LeftJustify("0", labor::FollowupMiles.width) + kLineMark + LeftJustify("0", labor::FollowupDays.width) +
              kLineMark + std::string(labor::FollowupDate.width, ' ');
    } else {
      text += RightJustify(std::to_string(line.FollowupMiles), labor::FollowupMiles.width) + kLineMark +
              RightJustify(std::to_string(line.FollowupDays), labor::FollowupDays.width) + kLineMark +
              RightJustify(std::to_string(line.FollowupDate), labor::FollowupDate.width);
    }
    if (around_.options.RepairCodeOption) text += kLineMark + TrimNull(line.RepairCode);
    lines_.push_back(text);
  }

  void Extra(const WoExtraLine& line) {
    if (TrimView(line.Vendor).empty()) return;
    lines_.push_back(LeftJustify(TrimNull(line.Vendor), extra::Vendor.width) +
                     LeftJustify(TrimNull(line.Invoice), extra::Invoice.width) + line.Taxable +
                     RightJustify(std::to_string(line.Cost), extra::Cost.width) +
                     RightJustify(std::to_string(line.Price), extra::Price.width) + TrimNull(line.Description));
  }

  void Credit(const WoCreditLine& line) {
    if (TrimView(line.Text[0]).empty()) return;
    lines_.push_back(LeftJustify(std::to_string(line.Amount), credit::Amount.width) + Joined(line.Text));
  }

  void Notes() {
    for (const WoNote& note : workorder_.Notes) {
      if (const std::string text = Joined(note); !text.empty()) lines_.push_back(text);
    }
  }

  // Trimmed lines with marks between them; empty ones at the end are dropped.
  template <std::size_t Count>
  static std::string Joined(const std::array<std::string, Count>& texts) {
    std::string joined;
    for (const std::string& text : texts) joined += TrimNull(text) + kLineMark;
    return joined.substr(0, joined.find_last_not_of(kLineMark) + 1);
  }

  void CheckList() {
    if (!around_.checkList.ChecklistLoaded) return;
    const auto value = [](std::string_view typed) {
      const std::string text = TrimNull(typed);
      return text.empty() ? std::string(" ") : text;
    };
    for (const ChecklistItem& item : around_.checkList.items) {
      if (!item.Used) continue;
      lines_.push_back(item.IsCategory() ? item.Name
                                         : item.Name + "," + value(item.Service) + "," + value(item.DueBackMiles));
    }
  }

  Workorder& workorder_;
  const TextSurroundings& around_;
  std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> WorkorderLines(Workorder& workorder, const TextSurroundings& around) {
  return Writer(workorder, around).Lines();
}

std::string WorkorderText(Workorder& workorder, const TextSurroundings& around) {
  std::string text;
  for (const std::string& line : WorkorderLines(workorder, around)) {
    text += line;
    text += "\r\n";
  }
  return text;
}

}  // namespace lantos
