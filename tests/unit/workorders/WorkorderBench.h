#pragma once

#include <string>
#include <utility>
#include <vector>

#include "frame/Dates.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/Fixture.h"
#include "records/Vehicles.h"
#include "workorders/Workorders.h"

namespace lantos::test {

// Lines handed out one after another, in place of a file.
class Lines : public LineSource {
 public:
  explicit Lines(std::vector<std::string> lines) : lines_(std::move(lines)) {}
  bool Next(std::string& line) override {
    line.clear();
    if (next_ == lines_.size()) return false;
    line = lines_[next_++];
    return true;
  }

 private:
  std::vector<std::string> lines_;
  std::size_t next_ = 0;
};

template <class Line>
std::vector<Line> Entries(const WoLines<Line>& lines) {
  std::vector<Line> all;
  lines.ForEach([&](const Line& line) { all.push_back(line); });
  return all;
}

// Everything that a work order holds, as texts: two are the same when these are.
inline std::vector<std::string> Told(const Workorder& workorder) {
  std::vector<std::string> told = {std::to_string(workorder.WorkorderNumber),
                                   workorder.Status,
                                   workorder.Type,
                                   workorder.Pricing,
                                   workorder.TimeIn,
                                   workorder.TimeOut,
                                   workorder.TimePromised,
                                   workorder.PaymentComment,
                                   std::to_string(workorder.AmountDue)};
  const auto bytes = [&told](const auto& record) {
    told.emplace_back(reinterpret_cast<const char*>(record.Bytes().data()), record.Bytes().size());
  };
  bytes(workorder.Customer);
  bytes(workorder.Vehicle);
  bytes(workorder.Totals);
  const auto row = [&told](std::initializer_list<std::string> texts) {
    std::string joined;
    for (const std::string& text : texts) joined += text + "|";
    told.push_back(joined);
  };
  const auto number = [](std::int64_t value) { return std::to_string(value); };
  const auto size = [&](const char* name, std::size_t count) { row({name, number(static_cast<std::int64_t>(count))}); };
  size("Parts", workorder.Parts.Size());
  for (std::size_t i = 0; i < workorder.Parts.Size(); ++i) {
    const WoPartLine& line = workorder.Parts[i];
    row({line.PartNumber, line.Description, number(line.Quantity), number(line.Cost), number(line.Price),
         number(line.List)});
  }
  size("Labor", workorder.Labor.Size());
  for (std::size_t i = 0; i < workorder.Labor.Size(); ++i) {
    const WoLaborLine& line = workorder.Labor[i];
    row({line.Date, number(line.Mechanic), number(line.Hours), number(line.Rate), number(line.Commission),
         number(line.Total), number(line.FollowupMiles), number(line.FollowupDays), number(line.FollowupDate),
         line.RepairCode});
    for (const std::string& text : line.Desc) told.push_back(text);
  }
  for (const auto* lines : {&workorder.Sublets, &workorder.Waste}) {
    size("Extras", lines->Size());
    for (std::size_t i = 0; i < lines->Size(); ++i) {
      const WoExtraLine& line = (*lines)[i];
      row({line.Vendor, line.Invoice, number(line.Cost), number(line.Price), line.Description,
           std::string(1, line.Taxable)});
    }
  }
  size("Credits", workorder.Credits.Size());
  for (std::size_t i = 0; i < workorder.Credits.Size(); ++i) {
    const WoCreditLine& line = workorder.Credits[i];
    row({number(line.Amount), line.Text[0], line.Text[1], line.Text[2], line.Text[3]});
  }
  for (const WoNote& note : workorder.Notes) told.insert(told.end(), note.begin(), note.end());
  return told;
}

inline Workorder Cleared() {
  Workorder workorder;
  ClearWorkorder(workorder);
  return workorder;
}

constexpr std::int32_t kToday = 731868;  // 2003-09-30 as the files have it

class WorkorderBench : public ShopTest {
 protected:
  ShopOptions& Options() { return environment.shopOptions; }
  CheckListTable& Checks() { return records.checkList; }
  TextSurroundings Around() { return {environment.shopOptions, records.checkList, environment.Today()}; }

  static ChecklistItem Item(std::string name) {
    ChecklistItem item;
    item.Name = std::move(name);
    return item;
  }
  static ChecklistItem Used(std::string name, std::string service = "", std::string dueBackMiles = "") {
    return {true, std::move(name), std::move(service), std::move(dueBackMiles)};
  }

  std::vector<std::string> Written(Workorder& workorder) { return WorkorderLines(workorder, Around()); }
  // The lines between a heading and the empty line that ends its section; the heading itself must be there.
  std::vector<std::string> SectionOf(Workorder& workorder, const std::string& heading) {
    const std::vector<std::string> lines = Written(workorder);
    const auto start = std::find(lines.begin(), lines.end(), heading);
    EXPECT_NE(start, lines.end()) << heading;
    if (start == lines.end()) return {};
    const auto end = std::find(start, lines.end(), "");
    EXPECT_NE(end, lines.end()) << heading;
    return {start + 1, end};
  }
  Workorder ReadBack(std::vector<std::string> lines) {
    Workorder workorder = Cleared();
    Checks().ClearCheckListValues();
    Lines source(std::move(lines));
    const TextSurroundings around = Around();
    WorkorderReader reader(workorder, around, desktop, source);
    std::string line;
    for (bool more = source.Next(line); more;) {
      reader.ParseWoSection(line);
      if (!line.starts_with(kWorkorderHeading)) more = source.Next(line);
    }
    return workorder;
  }

  // Something in every section, and each kind of line.
  Workorder Sample() {
    Workorder workorder = Cleared();
    workorder.WorkorderNumber = 4711;
    workorder.Status = "OPEN";
    workorder.Type = "Repair";
    workorder.Pricing = "Retail";
    workorder.TimeIn = "8:15AM";
    workorder.TimePromised = "5PM";
    workorder.PaymentComment = "half now";
    CustomerRecord& customer = workorder.Customer;
    customer.Put(customer::Number, 1002);
    customer.Put(customer::Lastname, "Bj\xF8rnson");
    customer.Put(customer::Firstname, "Ann");
    customer.Put(customer::SpouseLast, "Lee");
    customer.Put(customer::Address, "22 Second Street");
    customer.Put(customer::City, "Dayton");
    customer.Put(customer::State, "OH");
    customer.Put(customer::Zip, "45402");
    customer.Put(customer::HomePhone, "937-555-0202");
    customer.Put(customer::WorkExt, "12");
    customer.Put(customer::tax_id_number, "EX-1");
    VehicleRecord& car = workorder.Vehicle;
    car.Put(vehicle::Year, "1998");
    car.Put(vehicle::Make, "Ford");
    car.Put(vehicle::Model, "Crown Victoria");
    car.Put(vehicle::VIN, "2FAFP71W0WX100001");
    car.Put(vehicle::LicenseNumber, "CAB 1");
    car.Put(vehicle::Mileage, 188000);
    car.Put(vehicle::Date, kToday);
    car.Put(vehicle::VComment[1], "dent in the door");
    car.Put(vehicle::FirstMileage, 40000);
    car.Put(vehicle::FirstDate, kToday - 1000);
    WoTotals& totals = workorder.Totals;
    totals.Put(wototals::DateOpen, kToday);
    totals.Put(wototals::TaxRate[0], 57500);
    totals.Put(wototals::Cost[0], 620);
    totals.Put(wototals::Subtotal[0], 1398);
    totals.Put(wototals::Subtotal[1], 16250);
    totals.Put(wototals::Discount[1], 100000);
    totals.Put(wototals::WorkorderTax, 80);
    totals.Put(wototals::WorkorderTotal, 18728);
    totals.Put(wototals::PaymentMethod, 12);
    totals.Put(wototals::SplitType(0), 1);
    totals.Put(wototals::SplitAmount(0), 5000);
    totals.Put(wototals::SplitDate(0), kToday);
    totals.Put(wototals::SplitType(1), 2);
    totals.Put(wototals::SplitAmount(1), 728);
    workorder.AmountDue = 13000;
    workorder.Parts.Add({"PF47", "OIL FILTER", 2, 310, 699, 750});
    workorder.Parts.Add({"12345678901234567890", "x2345678901234567890123456789012345678", -1, 0, 12345, 0});
    WoLaborLine labor{"", 12, 250, 6500, 100000, 16250, {}, 60000, 180, kToday, ""};
    labor.Desc = {"TIMING BELT", "", "CHECK WATER PUMP", "", "", "", "", ""};
    workorder.Labor.Add(labor);
    labor = {"", 0, 0, 0, 0, 0, {}, 0, 0, 0, ""};
    labor.Desc[0] = "COURTESY CHECK";
    workorder.Labor.Add(labor);
    workorder.Sublets.Add({"Riverside Radiator", "81120", 18900, 24570, "RECORE RADIATOR\tBY FRIDAY", 'Y'});
    workorder.Sublets.Add({"SURCHARGE", "", 0, 500, "SHOP SUPPLIES", 'N'});
    workorder.Waste.Add({"Oil disposal", "", 0, 250, "", ' '});
    workorder.Credits.Add({1500, {"Coupon", "", "spring", ""}});
    workorder.Notes[0] = {"first", "", "third", "", "", "", "", ""};
    workorder.Notes[1][0] = "Customer waits";
    // As they are summed up from the lines.
    totals.Put(wototals::Cost[2], 18900);
    totals.Put(wototals::Subtotal[2], 24570);
    totals.Put(wototals::Subtotal[4], 500);
    totals.Put(wototals::Subtotal[5], 250);
    totals.Put(wototals::Subtotal[6], 1500);
    return workorder;
  }
  void LoadChecks() {
    Checks().items = {Used("[Engine]"), Used("Oil", "changed", "3000"), Item("Belts"), Used("Hoses")};
    Checks().ChecklistLoaded = true;
  }
};

}  // namespace lantos::test
