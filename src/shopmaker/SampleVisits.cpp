#include <algorithm>
#include <map>

#include "estimatedb/modEstimates.h"
#include "frame/Dates.h"
#include "shopmaker/Random.h"
#include "shopmaker/SampleSteps.h"

// Which visits there were, and which estimates were converted.
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

}  // namespace

void ImagineWorkorders(SampleShop& shop, const SampleOptions& options) { Planner(shop, options).Plan(); }

}  // namespace lantos::sample
