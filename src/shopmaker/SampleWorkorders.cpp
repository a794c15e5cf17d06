#include <algorithm>
#include <limits>
#include <map>
#include <unordered_map>

#include "estimatedb/modEstimates.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/SharedFile.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/Followups.h"
#include "records/LaborText.h"
#include "records/MakesModels.h"
#include "records/OpenedFile.h"
#include "records/PriceLevels.h"
#include "records/Vehicles.h"
#include "records/inventory/InventoryLayout.h"
#include "records/inventory/UsageHistory.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "shopmaker/PartShelf.h"
#include "shopmaker/Random.h"
#include "shopmaker/SampleSteps.h"
#include "workorders/LaborCost.h"
#include "workorders/RunningTotals.h"
#include "workorders/WorkorderText.h"
#include "workorders/Workorders.h"

namespace lantos::sample {

namespace {

constexpr DaySerial kYear = 365;
constexpr DaySerial kHistory = 3 * kYear;  // days that the archive reaches back
constexpr DaySerial kSchedule = 15;        // the last days belong to the estimates
constexpr DaySerial kUntilArchived = 5;    // days that a paid one stays active
constexpr DaySerial kBetweenVisits = 60;
constexpr std::size_t kMostActive = 200;       // each is a file of its own
constexpr std::size_t kMostVehicles = 300000;  // with a history: the archive has to end below 2^31
constexpr std::int32_t kLeastNumber = 1001;

// ---- Which visits there were

bool IsOpen(const SampleShop& shop, DaySerial day) { return AvailableOn(shop, day) > 0; }
DaySerial OpenDayUpTo(const SampleShop& shop, DaySerial day) {
  while (!IsOpen(shop, day)) --day;
  return day;
}
DaySerial OpenDayFrom(const SampleShop& shop, DaySerial day) {
  while (!IsOpen(shop, day)) ++day;
  return day;
}

std::size_t OwnerOf(const VehicleRecord& record) { return static_cast<std::size_t>(record.Get(vehicle::Number) - 1); }
bool IsFleet(const SampleShop& shop, std::size_t customer) {
  return !shop.customers[customer].View(customer::tax_id_number).empty();
}
std::size_t IndexOf(FileLink vehicle) { return static_cast<std::size_t>(vehicle) / VehicleRecord::kLength; }

class Planner {
 public:
  Planner(SampleShop& shop, const SampleOptions& options)
      : shop_(shop), today_(options.date), random_(options.seed, kWorkorderStream) {}

  void Plan() {
    const std::size_t step = 1 + shop_.vehicles.size() / kMostVehicles;
    for (std::size_t index = 0; index < shop_.vehicles.size(); index += step) AddHistory(index);
    // The newest first: they are the ones that are still about.
    for (std::size_t i = shop_.estimates.size(); i > 0; --i) AddConverted(i - 1);
    for (const WoStatus status : {WoStatus::Open, WoStatus::Closed, WoStatus::Paid}) AddIfMissing(status);
    GiveNumbers();
    NameInFollowups();
  }

 private:
  SampleWorkorder& Add(std::size_t customer, FileLink vehicle, DaySerial opened) {
    SampleWorkorder& order = shop_.workorders.emplace_back();
    order.customer = customer;
    order.vehicle = vehicle;
    order.opened = opened;
    order.seed = random_.Next();
    return order;
  }

  // Visits up to the day on which the vehicle was last seen, not before it or its owner were first.
  void AddHistory(std::size_t index) {
    const VehicleRecord& record = shop_.vehicles[index];
    const std::size_t owner = OwnerOf(record);
    const DaySerial known = FromFileDate(shop_.customers[owner].Get(customer::Date));
    DaySerial first = std::max(today_ - kHistory, known), last = today_ - kSchedule;
    if (record.Get(vehicle::Date) > 0) {
      first = std::max(first, FromFileDate(record.Get(vehicle::FirstDate)));
      last = std::min(last, FromFileDate(record.Get(vehicle::Date)));
    } else {
      last -= random_.Below(kHistory);
    }
    if (first > last) return;
    const DaySerial room = last - first;
    const std::int32_t visits = std::min(CountVisits(owner), 1 + room / kBetweenVisits);
    for (std::int32_t visit = 1; visit <= visits; ++visit) {
      const DaySerial span = room / visits;
      const DaySerial day = visit == visits ? last : first + (visit - 1) * span + random_.Below(std::max(1, span));
      SampleWorkorder& order =
          Add(owner, static_cast<FileLink>(index * VehicleRecord::kLength), OpenDayUpTo(shop_, day));
      order.archived = true;
      Finish(order);
    }
  }

  std::int32_t CountVisits(std::size_t owner) {
    const std::int32_t draw = random_.Below(100);
    const std::int32_t visits = draw < 8 ? 0 : draw < 70 ? 1 : draw < 92 ? 2 : 3;
    return IsFleet(shop_, owner) ? visits + 1 : visits;
  }

  // How an earlier visit ended.
  void Finish(SampleWorkorder& order) {
    constexpr DaySerial kTerms = 30;
    const bool fleet = IsFleet(shop_, order.customer);
    order.status = random_.Chance(1)             ? WoStatus::Void
                   : fleet && random_.Chance(30) ? WoStatus::OnAccount
                                                 : WoStatus::Paid;
    if (order.status == WoStatus::Void) return;
    const DaySerial days = random_.Chance(75) ? 0 : random_.Between(1, 2);
    order.closed = OpenDayFrom(shop_, order.opened + days);
    if (order.status != WoStatus::Paid) return;
    order.paid = fleet ? std::min(today_, order.closed + random_.Below(kTerms)) : order.closed;
  }

  void AddConverted(std::size_t index) {
    const SampleEstimate& estimate = shop_.estimates[index];
    const bool departed = estimate.status == kDeparted;
    if (!departed && estimate.status != kCompleted && estimate.status != kInProgress) return;
    const bool archived = departed && estimate.scheduled < today_ - kUntilArchived;
    if (!archived && active_ == kMostActive) return;
    if (!archived) ++active_;
    SampleWorkorder& order = Add(estimate.customer, estimate.vehicle, estimate.scheduled);
    order.estimate = index;
    order.archived = archived;
    if (departed && IsFleet(shop_, order.customer)) {
      Enter(order, WoStatus::OnAccount);
    } else {
      Enter(order, departed ? WoStatus::Paid : estimate.status == kCompleted ? WoStatus::Closed : WoStatus::Open);
    }
  }

  static void Enter(SampleWorkorder& order, WoStatus status) {
    order.status = status;
    if (status != WoStatus::Open) order.closed = order.opened;
    if (status == WoStatus::Paid) order.paid = order.opened;
  }

  // A shop with few estimates has each kind to look at all the same.
  void AddIfMissing(WoStatus status) {
    const auto& orders = shop_.workorders;
    const auto isThere = [&](const SampleWorkorder& order) { return !order.archived && order.status == status; };
    if (shop_.vehicles.empty() || std::any_of(orders.begin(), orders.end(), isThere)) return;
    const auto count = static_cast<std::int32_t>(shop_.vehicles.size());
    for (std::int32_t tries = 0; tries < count; ++tries) {
      const auto index = static_cast<std::size_t>(random_.Below(count));
      const VehicleRecord& record = shop_.vehicles[index];
      if (record.Get(vehicle::Deleted) == kVehicleDeleted) continue;
      const DaySerial day = today_ - static_cast<DaySerial>(status);
      Enter(Add(OwnerOf(record), static_cast<FileLink>(index * VehicleRecord::kLength), OpenDayUpTo(shop_, day)),
            status);
      return;
    }
  }

  void GiveNumbers() {
    std::vector<SampleWorkorder>& orders = shop_.workorders;
    std::stable_sort(orders.begin(), orders.end(),
                     [](const auto& one, const auto& other) { return one.opened < other.opened; });
    const auto count = static_cast<std::int32_t>(orders.size());
    const std::int32_t next = std::max(shop_.system.Get(sysrec::last_workorder_number), kLeastNumber + count);
    shop_.system.Put(sysrec::last_workorder_number, next);
    std::int32_t number = next - count;
    for (SampleWorkorder& order : orders) order.number = number++;
  }

  // A followup comes from the vehicle's last archived visit, or from one before the archive begins.
  void NameInFollowups() {
    std::map<std::string, std::int32_t, std::less<>> newest;
    for (const FollowupRecord& followup : shop_.followups) newest.emplace(followup.Get(followup::VIN), 0);
    for (const SampleWorkorder& order : shop_.workorders) {
      if (!order.archived || order.vehicle == kNoLink) continue;
      const auto found = newest.find(shop_.vehicles[IndexOf(order.vehicle)].View(vehicle::VIN));
      if (found != newest.end()) found->second = order.number;
    }
    std::int32_t older =
        shop_.system.Get(sysrec::last_workorder_number) - static_cast<std::int32_t>(shop_.workorders.size());
    for (FollowupRecord& followup : shop_.followups) {
      const std::int32_t number = newest[followup.Get(followup::VIN)];
      followup.Put(followup::WorkorderNumber, number > 0 ? number : std::max(1, --older));
    }
  }

  SampleShop& shop_;
  const DaySerial today_;
  Random random_;
  std::size_t active_ = 0;
};

// ---- What stands on them

// Who worked in the shop when, and what an hour of theirs costs.
class Crew {
 public:
  explicit Crew(const SampleShop& shop) {
    for (const EmployeeRecord& record : shop.employees) {
      const std::int32_t number = record.Get(employee::EmpNumber);
      const FileDate left = record.Get(employee::DateTerminated);
      const bool works = std::find(shop.technicians.begin(), shop.technicians.end(), number) != shop.technicians.end();
      if (!works && left <= 0) continue;  // writes the estimates
      const Millionths commission =
          record.Get(employee::CommissionPeriod) > 0 ? record.Get(employee::Commission) : Millionths{0};
      members_.push_back({number, FromFileDate(record.Get(employee::DateHired)),
                          left > 0 ? FromFileDate(left) : std::numeric_limits<DaySerial>::max(), HourlyWage(record),
                          commission});
    }
  }

  struct Member {
    std::int32_t number;
    DaySerial hired, left;
    Cents wage;
    Millionths commission;
  };
  // One of those at work on a day; who is longest with the shop also did what lies before everybody's time.
  std::int32_t Pick(Random& random, DaySerial day) const {
    std::vector<std::int32_t> present;
    for (const Member& member : members_) {
      if (member.hired <= day && day < member.left) present.push_back(member.number);
    }
    if (!present.empty()) return random.Pick(present);
    const auto byHiring = [](const Member& one, const Member& other) { return one.hired < other.hired; };
    return std::min_element(members_.begin(), members_.end(), byHiring)->number;
  }
  const Member* Find(std::int32_t number) const {
    const auto found =
        std::find_if(members_.begin(), members_.end(), [&](const Member& member) { return member.number == number; });
    return found == members_.end() ? nullptr : &*found;
  }

 private:
  std::vector<Member> members_;
};

struct CreditEntry {
  std::string_view text;
  Cents amount;
};
constexpr CreditEntry kCredits[] = {
    {"REFERRAL CREDIT", 1000}, {"COUPON, SPRING MAILER", 1500}, {"TOW PAID BY CLUB", 4000}};

constexpr std::string_view kPaidWith[] = {"Check", "Visa",     "Check", "Cash",  "MasterCd", "Visa", "Debit",
                                          "Check", "Discover", "AmEx",  "Split", "Visa",     "Cash", "Check"};

std::int64_t Part(std::int64_t amount, std::int64_t rate, std::int64_t whole) {
  return DivideHalfEven(amount * rate, whole);
}

// Turns planned visits into whole work orders, always the same one for a visit.
class Maker {
 public:
  Maker(const SampleShop& shop, const ShopOptions& options)
      : shop_(shop), methods_(options.PaymentMethodNames), shelf_(shop), crew_(shop) {}

  void Make(const SampleWorkorder& order, Workorder& workorder) {
    ClearWorkorder(workorder);
    Random random(order.seed, 0);
    workorder.Customer = shop_.customers[order.customer];
    if (order.vehicle != kNoLink) workorder.Vehicle = VehicleThen(order);
    PutHeader(random, order, workorder);
    if (order.estimate != SampleWorkorder::kNoEstimate) {
      AddLines(order, shop_.estimates[order.estimate], workorder);
    } else {
      AddLines(order, ImagineVisit(random, order, workorder), workorder);
      RecommendService(random, order, workorder);
      AddCredit(random, workorder);
    }
    if (order.paid > 0 || order.status == WoStatus::OnAccount) PutPayment(random, order, workorder);
  }

 private:
  // As it stood then: the file has the mileage of the last time the vehicle was seen.
  VehicleRecord VehicleThen(const SampleWorkorder& order) const {
    constexpr std::int32_t kSince = 10, kSinceEstimate = 5;  // miles: the later visit has the higher mileage
    VehicleRecord record = shop_.vehicles[IndexOf(order.vehicle)];
    const std::int32_t last = record.Get(vehicle::Mileage), first = record.Get(vehicle::FirstMileage);
    if (!order.archived || last == 0) return record;
    const DaySerial firstDay = FromFileDate(record.Get(vehicle::FirstDate));
    const std::int64_t days = FromFileDate(record.Get(vehicle::Date)) - firstDay;
    const std::int64_t passed = std::clamp<std::int64_t>(order.opened - firstDay, 0, days);
    const auto then = static_cast<std::int32_t>(days == 0 ? last : first + (last - first) * passed / days);
    const bool converted = order.estimate != SampleWorkorder::kNoEstimate;
    const std::int32_t mileage = std::max(1, std::min(then, last - (converted ? kSinceEstimate : kSince)));
    record.Put(vehicle::Mileage, mileage);
    record.Put(vehicle::Date, ToFileDate(order.opened));
    record.Put(vehicle::FirstMileage, std::min(first, mileage));
    return record;
  }

  void PutHeader(Random& random, const SampleWorkorder& order, Workorder& workorder) const {
    constexpr std::string_view kTimesIn[] = {"07:30A", "07:45A", "08:00A", "08:15A", "08:40A", "09:20A", "11:05A"};
    constexpr std::string_view kTimesOut[] = {"11:50A", "02:15P", "03:30P", "04:10P", "04:45P", "05:20P"};
    constexpr std::string_view kPromises[] = {"NOON", "03:00P", "05:00P", "05:30P"};
    workorder.WorkorderNumber = order.number;
    workorder.Status = kWoStatusTexts[static_cast<std::size_t>(order.status)];
    workorder.Type = order.archived && random.Chance(2) ? "Warranty" : "Repair";
    workorder.Pricing = kPriceLevelNames[Level(order)];
    workorder.TimeIn = random.Pick(kTimesIn);
    workorder.TimePromised = random.Pick(kPromises);
    if (order.closed > 0) workorder.TimeOut = random.Pick(kTimesOut);
    WoTotals& totals = workorder.Totals;
    const auto putDay = [&](LongField field, DaySerial day) { totals.Put(field, day > 0 ? ToFileDate(day) : 0); };
    putDay(wototals::DateOpen, order.opened);
    putDay(wototals::DateClosed, order.closed);
    putDay(wototals::DatePaid, order.paid);
    if (IsFleet(shop_, order.customer)) return;  // pays no tax
    constexpr LongField kRates[] = {sysrec::tax_rate_parts, sysrec::tax_rate_labor, sysrec::tax_rate_sublet,
                                    sysrec::tax_rate_waste};
    for (std::size_t i = 0; i < std::size(kRates); ++i) {
      totals.Put(wototals::TaxRate[i], shop_.system.Get(kRates[i]));
    }
    constexpr Millionths kTenPercent = 100000;
    if (order.archived && order.estimate == SampleWorkorder::kNoEstimate && random.Chance(4)) {
      totals.Put(wototals::Discount[static_cast<std::size_t>(WoCategory::Labor)], kTenPercent);
    }
  }

  std::size_t Level(const SampleWorkorder& order) const {
    return static_cast<std::size_t>(shop_.customers[order.customer].Get(customer::pricing_level));
  }

  // Lines as an estimate has them.
  SampleEstimate ImagineVisit(Random& random, const SampleWorkorder& order, const Workorder& workorder) const {
    SampleEstimate visit;
    const std::int32_t mechanic = crew_.Pick(random, order.opened);
    const Cents rate = RateThen(order.opened);
    auto job = static_cast<std::size_t>(random.Below(static_cast<std::int32_t>(std::size(kJobs))));
    for (std::int32_t jobs = random.Between(1, 3); jobs > 0; --jobs) {
      const JobEntry& entry = kJobs[job];
      LaborText lines;
      std::copy(std::begin(entry.lines), std::end(entry.lines), lines.begin());
      visit.labors.push_back(
          {random.Chance(15) ? crew_.Pick(random, order.opened) : mechanic, entry.hours, rate, JoinLaborText(lines)});
      for (const JobPart& wanted : entry.parts) AddPart(random, order, wanted, workorder, visit);
      job = (job + 7) % std::size(kJobs);  // no job twice: the step is prime to their count
    }
    if (random.Chance(8)) {
      visit.sublets.push_back(ExtraLine(random.Pick(kSublets), std::to_string(random.Between(10000, 99999))));
    }
    if (random.Chance(18)) visit.wastes.push_back(ExtraLine(random.Pick(kWastes), ""));
    if (random.Chance(18)) {
      auto& note = visit.notes.emplace_back();
      const auto& lines = random.Pick(kNotes);
      std::copy(std::begin(lines), std::end(lines), note.begin());
    }
    return visit;
  }

  // An hour was cheaper in earlier years.
  Cents RateThen(DaySerial day) const {
    constexpr Cents kRise = 500;
    const DaySerial newest = shop_.workorders.back().opened;
    return shop_.system.Get(sysrec::shop_rate) - kRise * ((newest - day) / kYear);
  }

  void AddPart(Random& random, const SampleWorkorder& order, const JobPart& wanted, const Workorder& workorder,
               SampleEstimate& visit) const {
    if (wanted.kind == PartKind::None) return;
    const std::vector<std::size_t>& choice = shelf_.Fitting(wanted.kind, workorder.Vehicle.View(vehicle::Make));
    if (choice.empty()) return;
    const InventoryRecord& part = shop_.parts[random.Pick(choice)];
    const std::string_view number = part.View(inventory::StockNumber);
    const bool isThere = std::any_of(visit.parts.begin(), visit.parts.end(),
                                     [&](const SamplePart& line) { return line.number == number; });
    if (isThere) return;
    visit.parts.push_back({std::string(number), part.Get(inventory::Description), wanted.quantity,
                           part.Get(inventory::Pricing[Level(order)]), part.Get(inventory::Pricing[0]),
                           part.Get(inventory::Pricing[3])});
  }

  void AddLines(const SampleWorkorder& order, const SampleEstimate& from, Workorder& workorder) const {
    for (const SamplePart& part : from.parts) AddPartLine(part, workorder);
    for (const SampleLabor& labor : from.labors) AddLaborLine(order, labor, workorder);
    AddExtras(from.sublets, workorder, workorder.Sublets, WoCategory::Sublet, WoCategory::NonTaxSublet);
    AddExtras(from.wastes, workorder, workorder.Waste, WoCategory::Waste, WoCategory::NonTaxWaste);
    const std::size_t notes = std::min(from.notes.size(), kMaxNotes);
    std::copy_n(from.notes.begin(), notes, workorder.Notes.begin());
  }

  static void AddPartLine(const SamplePart& part, Workorder& workorder) {
    WoPartLine line;
    line.PartNumber = CutToField(part.number, WoPartLine::kNumberWidth);
    line.Description = CutToField(part.description, WoPartLine::kDescriptionWidth);
    line.Quantity = static_cast<std::int16_t>(part.quantity);
    line.Cost = part.cost;
    line.Price = part.price;
    line.List = part.list;
    AddWoAmount(workorder, WoCategory::Parts, 0, part.quantity * part.price);
    AddWoCost(workorder, WoCategory::Parts, static_cast<std::int64_t>(part.quantity) * part.cost);
    workorder.Parts.Add(std::move(line));
  }

  void AddLaborLine(const SampleWorkorder& order, const SampleLabor& labor, Workorder& workorder) const {
    constexpr std::int64_t kHour = 100, kWhole = 1000000;
    WoLaborLine line;
    line.Date = FormatDate(order.opened);
    line.Mechanic = labor.mechanic;
    line.Hours = labor.hours;
    line.Rate = labor.rate;
    line.Total = labor.Total();
    line.Desc = SplitLaborText(labor.description);
    if (const Crew::Member* member = crew_.Find(labor.mechanic)) {
      line.Commission = member->commission;
      const std::int64_t anHour = member->wage + Part(labor.rate, member->commission, kWhole);
      AddWoCost(workorder, WoCategory::Labor, Part(labor.hours, anHour, kHour));
    }
    AddWoAmount(workorder, WoCategory::Labor, 0, line.Total);
    workorder.Labor.Add(std::move(line));
  }

  static void AddExtras(const std::vector<de::Extra>& lines, Workorder& workorder, WoLines<WoExtraLine>& list,
                        WoCategory taxable, WoCategory nonTaxable) {
    for (const de::Extra& from : lines) {
      WoExtraLine line;
      line.Vendor = CutToField(from.VendorName, WoExtraLine::kVendorWidth);
      line.Invoice = CutToField(from.VendorInvoice, WoExtraLine::kInvoiceWidth);
      line.Cost = from.Cost;
      line.Price = from.Price;
      line.Description = from.Desc1 + '\t' + from.Desc2 + '\t' + from.Desc3 + '\t' + from.Desc4;
      line.Taxable = from.Taxable == "Yes" ? 'Y' : 'N';
      const WoCategory category = line.IsTaxable() ? taxable : nonTaxable;
      AddWoAmount(workorder, category, 0, line.Price);
      AddWoCost(workorder, category, line.Cost);
      list.Add(std::move(line));
    }
  }

  // Something to come back for, on a line of its own that costs nothing.
  void RecommendService(Random& random, const SampleWorkorder& order, Workorder& workorder) const {
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

  static void AddCredit(Random& random, Workorder& workorder) {
    if (!random.Chance(2)) return;
    const CreditEntry& entry = random.Pick(kCredits);
    if (workorder.Totals.Get(wototals::WorkorderTotal) <= entry.amount) return;
    WoCreditLine line;
    line.Amount = entry.amount;
    line.Text[0] = entry.text;
    AddWoAmount(workorder, WoCategory::Credit, 0, line.Amount);
    workorder.Credits.Add(std::move(line));
  }

  void PutPayment(Random& random, const SampleWorkorder& order, Workorder& workorder) const {
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

  void PutSplit(WoTotals& totals, std::size_t row, std::string_view method, Cents amount, DaySerial day) const {
    totals.Put(wototals::SplitType(row), MethodIndex(method));
    totals.Put(wototals::SplitAmount(row), amount);
    totals.Put(wototals::SplitDate(row), ToFileDate(day));
  }

  std::uint8_t MethodIndex(std::string_view name) const {
    return static_cast<std::uint8_t>(std::find(methods_.begin(), methods_.end(), name) - methods_.begin());
  }

  const SampleShop& shop_;
  const PaymentMethodTable methods_;
  const PartShelf shelf_;
  const Crew crew_;
};
static_assert(std::size(kJobs) % 7 != 0);

// ---- Their files

// A file that is written from its beginning to its end.
class GrowingFile {
 public:
  GrowingFile(ShopDirectory& directory, std::string_view name)
      : name_(name), file_(directory.Claim(name), Access::Write, Deny::All) {}

  // Where what is added next will lie.
  FileLink Next() const { return LinkAtEnd(written_ + waiting_.size(), name_); }
  void Add(std::string_view bytes) {
    waiting_ += bytes;
    if (waiting_.size() >= kBlock) Flush();
  }
  template <std::size_t Length>
  void Add(const Record<Length>& record) {
    Add(std::string_view(reinterpret_cast<const char*>(record.Bytes().data()), Length));
  }
  void Close() {
    Flush();
    file_.Close();
  }

 private:
  static constexpr std::size_t kBlock = 1 << 20;

  void Flush() {
    if (!waiting_.empty()) file_.WriteAt(written_, std::as_bytes(std::span(waiting_)));
    written_ += waiting_.size();
    waiting_.clear();
  }

  std::string name_;
  SharedFile file_;
  std::string waiting_;
  std::uint64_t written_ = 0;
};

ActiveWoTag TagOf(const Workorder& workorder) {
  ActiveWoTag tag;
  const CustomerRecord& owner = workorder.Customer;
  const auto put = [&tag](TextField field, std::string_view text) { tag.Put(field, CutToField(text, field.width)); };
  tag.Put(wotag::WorkorderNumber, workorder.WorkorderNumber);
  put(wotag::CustomerName, owner.Get(customer::Lastname) + "," + owner.Get(customer::Firstname));
  tag.Put(wotag::CustomerNumber, owner.Get(customer::Number));
  put(wotag::VIN, workorder.Vehicle.View(vehicle::VIN));
  put(wotag::LicenseNumber, workorder.Vehicle.View(vehicle::LicenseNumber));
  tag.Put(wotag::Status, WoStatusCode(workorder.Status, 0));
  tag.Put(wotag::Type, WoTypeCode(workorder.Type));
  tag.Put(wotag::TaxExempt, owner.View(customer::tax_id_number).empty() ? 0 : 1);
  const auto totals = workorder.Totals.Bytes();
  std::copy(totals.begin(), totals.end(), tag.Bytes().begin() + wotag::Totals.offset);
  put(wotag::FileName, Workorders::FileNameOf(workorder.WorkorderNumber));
  return tag;
}

ArchivedWoTag ArchivedTagOf(const ActiveWoTag& from, FileLink masterOffset) {
  ArchivedWoTag tag;
  std::copy_n(from.Bytes().begin(), wotag::MasterOffset.offset, tag.Bytes().begin());
  tag.Put(wotag::MasterOffset, masterOffset);
  return tag;
}

// The parts that left the stock, each part's chained from the newest back.
class UsageWriter {
 public:
  UsageWriter(ShopDirectory& directory, const SampleShop& shop)
      : file_(directory, kUsageFile), newest_(shop.parts.size(), kNoLink) {
    for (std::size_t i = 0; i < shop.partTags.size(); ++i) {
      const std::string_view number = shop.partTags[i].View(inventorytag::StockNumber);
      if (!number.empty()) index_.emplace(number, i);
    }
  }

  void Add(const Workorder& workorder, const ActiveWoTag& tag) {
    if (tag.Get(wotag::Status) == static_cast<std::uint8_t>(WoStatus::Void)) return;
    workorder.Parts.ForEach([&](const WoPartLine& line) {
      const auto found = index_.find(line.PartNumber);
      if (found == index_.end()) return;
      FileLink& newest = newest_[found->second];
      UsageRecord record;
      record.Put(usage::StockNumber, line.PartNumber);
      record.Put(usage::WorkorderNumber, workorder.WorkorderNumber);
      record.Put(usage::Date, workorder.Totals.Get(wototals::DateOpen));
      record.Put(usage::CustomerKey, tag.View(wotag::CustomerName));
      record.Put(usage::Quantity, line.Quantity);
      record.Put(usage::Price, line.Cost);  // handed over crosswise, as a conversion does
      record.Put(usage::Cost, line.Price);
      record.Put(usage::PrevLink, newest);
      newest = file_.Next();
      file_.Add(record);
    });
  }

  std::vector<FileLink> Close() {
    file_.Close();
    return std::move(newest_);
  }

 private:
  GrowingFile file_;
  std::vector<FileLink> newest_;
  std::unordered_map<std::string_view, std::size_t> index_;
};

}  // namespace

void ImagineWorkorders(SampleShop& shop, const SampleOptions& options) { Planner(shop, options).Plan(); }

std::vector<FileLink> WriteWorkorders(ShopDirectory& directory, const SampleShop& shop, Clock& clock) {
  UserSettings settings{std::filesystem::path()};  // none are looked at
  Environment environment(clock, settings);
  CheckListTable checkList(environment);
  GrowingFile activeTags(directory, kActiveTagFile), archivedTags(directory, kArchivedTagFile),
      archive(directory, kArchiveFile);
  UsageWriter usage(directory, shop);
  Maker maker(shop, environment.shopOptions);
  Workorder workorder;
  std::string text;
  for (const SampleWorkorder& order : shop.workorders) {
    maker.Make(order, workorder);
    text.clear();
    const TextSurroundings around{environment.shopOptions, checkList, order.opened};
    for (const std::string& line : WorkorderLines(workorder, around)) {
      text += line;
      text += "\r\n";
    }
    const ActiveWoTag tag = TagOf(workorder);
    archivedTags.Add(ArchivedTagOf(tag, order.archived ? archive.Next() : kNoLink));
    if (order.archived) {
      archive.Add(text);
    } else {
      activeTags.Add(tag);
      directory.AddFile(tag.View(wotag::FileName), text + '\0');
    }
    usage.Add(workorder, tag);
  }
  for (GrowingFile* file : {&activeTags, &archivedTags, &archive}) file->Close();
  return usage.Close();
}

}  // namespace lantos::sample
