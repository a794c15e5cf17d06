#include "shopmaker/SamplePastOrders.h"

#include <algorithm>

#include "frame/Dates.h"
#include "records/LaborText.h"
#include "shopmaker/SampleSteps.h"
#include "workorders/RunningTotals.h"

namespace lantos::sample {

namespace {

struct CreditEntry {
  std::string_view text;
  Cents amount;
};
constexpr CreditEntry kCredits[] = {
    {"REFERRAL CREDIT", 1000}, {"COUPON, SPRING MAILER", 1500}, {"TOW PAID BY CLUB", 4000}};

constexpr std::string_view kPaidWith[] = {"Check", "Visa",     "Check", "Cash",  "MasterCd", "Visa", "Debit",
                                          "Check", "Discover", "AmEx",  "Split", "Visa",     "Cash", "Check"};

de::Part RowOf(const SamplePart& part) {
  de::Part row;
  row.PartNumber = part.number;
  row.PartDesc = part.description;
  row.Quantity = part.quantity;
  row.PartPrice = part.price;
  row.PartCost = part.cost;
  row.PartList = part.list;
  return row;
}

WoLaborLine LineOf(const SampleLabor& labor) {
  WoLaborLine line;
  line.Mechanic = labor.mechanic;
  line.Hours = labor.hours;
  line.Rate = labor.rate;
  line.Total = labor.Total();
  line.Desc = SplitLaborText(labor.description);
  return line;
}

bool IsConverted(const SampleWorkorder& order) { return order.estimate != SampleWorkorder::kNoEstimate; }

}  // namespace

void PastOrders::Make(const SampleWorkorder& order, Workorder& workorder) {
  ClearWorkorder(workorder);
  Random random(order.seed, 0);
  OrderFilling filling(workorder, employees_);
  filling.TakeCustomer(shop_.customers[order.customer]);
  if (order.vehicle != kNoLink) filling.TakeVehicle(VehicleThen(order));
  workorder.WorkorderNumber = order.number;
  filling.TakeHeader(order.opened, shop_.system);
  PutProgress(random, order, workorder);
  PutDiscount(random, order, workorder);
  if (IsConverted(order)) {
    TakeLines(shop_.estimates[order.estimate], filling);
  } else {
    TakeLines(lines_.Imagine(random, order, workorder.Vehicle.View(vehicle::Make)), filling);
    RecommendService(random, order, workorder);
    AddCredit(random, workorder);
  }
  if (order.paid > 0 || order.status == WoStatus::OnAccount) PutPayment(random, order, workorder);
}

// As it stood then: the file has the mileage of the last time the vehicle was seen.
VehicleRecord PastOrders::VehicleThen(const SampleWorkorder& order) const {
  constexpr std::int32_t kSince = 10, kSinceEstimate = 5;  // miles: the later visit has the higher mileage
  VehicleRecord record = shop_.vehicles[IndexOf(order.vehicle)];
  const std::int32_t last = record.Get(vehicle::Mileage), first = record.Get(vehicle::FirstMileage);
  if (!order.archived || last == 0) return record;
  const DaySerial firstDay = FromFileDate(record.Get(vehicle::FirstDate));
  const std::int64_t days = FromFileDate(record.Get(vehicle::Date)) - firstDay;
  const std::int64_t passed = std::clamp<std::int64_t>(order.opened - firstDay, 0, days);
  const auto then = static_cast<std::int32_t>(days == 0 ? last : first + (last - first) * passed / days);
  const std::int32_t mileage = std::max(1, std::min(then, last - (IsConverted(order) ? kSinceEstimate : kSince)));
  record.Put(vehicle::Mileage, mileage);
  record.Put(vehicle::Date, ToFileDate(order.opened));
  record.Put(vehicle::FirstMileage, std::min(first, mileage));
  return record;
}

// What the shop did with it since it was opened.
void PastOrders::PutProgress(Random& random, const SampleWorkorder& order, Workorder& workorder) const {
  constexpr std::string_view kTimesIn[] = {"07:30A", "07:45A", "08:00A", "08:15A", "08:40A", "09:20A", "11:05A"};
  constexpr std::string_view kTimesOut[] = {"11:50A", "02:15P", "03:30P", "04:10P", "04:45P", "05:20P"};
  constexpr std::string_view kPromises[] = {"NOON", "03:00P", "05:00P", "05:30P"};
  workorder.Status = kWoStatusTexts[static_cast<std::size_t>(order.status)];
  if (order.archived && random.Chance(2)) workorder.Type = "Warranty";
  workorder.TimeIn = random.Pick(kTimesIn);
  workorder.TimePromised = random.Pick(kPromises);
  if (order.closed > 0) workorder.TimeOut = random.Pick(kTimesOut);
  const auto putDay = [&](LongField field, DaySerial day) {
    if (day > 0) workorder.Totals.Put(field, ToFileDate(day));
  };
  putDay(wototals::DateClosed, order.closed);
  putDay(wototals::DatePaid, order.paid);
}

// Ahead of the lines, whose amounts it lowers.
void PastOrders::PutDiscount(Random& random, const SampleWorkorder& order, Workorder& workorder) const {
  constexpr Millionths kTenPercent = 100000;
  if (IsFleet(shop_, order.customer) || !order.archived || IsConverted(order) || !random.Chance(4)) return;
  workorder.Totals.Put(wototals::Discount[static_cast<std::size_t>(WoCategory::Labor)], kTenPercent);
}

void PastOrders::TakeLines(const SampleEstimate& from, OrderFilling& filling) {
  for (const SamplePart& part : from.parts) filling.TakePart(RowOf(part));
  for (const SampleLabor& labor : from.labors) filling.TakeLabor(LineOf(labor));
  for (const de::Extra& line : from.sublets) filling.TakeSublet(line);
  for (const de::Extra& line : from.wastes) filling.TakeWaste(line);
  for (const WoNote& note : from.notes) filling.TakeNote(note);
}

// Something to come back for, on a line of its own that costs nothing.
void PastOrders::RecommendService(Random& random, const SampleWorkorder& order, Workorder& workorder) const {
  constexpr std::int32_t kDays = 90, kMiles = 3000;
  if (!random.Chance(12)) return;
  WoLaborLine line;
  line.Date = FormatDate(order.opened);
  line.Mechanic = crew_.Pick(random, order.opened);
  line.Desc[0] = "NEXT OIL SERVICE DUE";
  line.FollowupMiles = kMiles;
  line.FollowupDays = kDays;
  line.FollowupDate = ToFileDate(order.opened + kDays);
  workorder.Labor.Add(std::move(line));
}

void PastOrders::AddCredit(Random& random, Workorder& workorder) {
  if (!random.Chance(2)) return;
  const CreditEntry& entry = random.Pick(kCredits);
  if (workorder.Totals.Get(wototals::WorkorderTotal) <= entry.amount) return;
  WoCreditLine line;
  line.Amount = entry.amount;
  line.Text[0] = entry.text;
  AddWoAmount(workorder, WoCategory::Credit, 0, line.Amount);
  workorder.Credits.Add(std::move(line));
}

void PastOrders::PutPayment(Random& random, const SampleWorkorder& order, Workorder& workorder) const {
  constexpr Cents kDollar = 100;
  WoTotals& totals = workorder.Totals;
  const std::string_view method = order.status == WoStatus::OnAccount ? "Account"
                                  : workorder.Type == "Warranty"      ? "Warranty"
                                  : IsFleet(shop_, order.customer)    ? "Check"
                                                                      : random.Pick(kPaidWith);
  totals.Put(wototals::PaymentMethod, MethodIndex(method));
  if (method == "Check") workorder.PaymentComment = "CHECK " + std::to_string(random.Between(101, 9899));
  if (method != kSplitPayment) return;
  const Cents total = totals.Get(wototals::WorkorderTotal);
  const Cents cash = total / (3 * kDollar) * kDollar;
  PutSplit(totals, 0, "Cash", cash, order.paid);
  PutSplit(totals, 1, "Check", total - cash, order.paid);
  workorder.AmountDue = 0;
}

void PastOrders::PutSplit(WoTotals& totals, std::size_t row, std::string_view method, Cents amount,
                          DaySerial day) const {
  totals.Put(wototals::SplitType(row), MethodIndex(method));
  totals.Put(wototals::SplitAmount(row), amount);
  totals.Put(wototals::SplitDate(row), ToFileDate(day));
}

std::uint8_t PastOrders::MethodIndex(std::string_view name) const {
  return static_cast<std::uint8_t>(std::find(methods_.begin(), methods_.end(), name) - methods_.begin());
}

}  // namespace lantos::sample
