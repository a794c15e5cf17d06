#include <algorithm>
#include <cmath>

#include "estimatedb/modEstimates.h"
#include "frame/Dates.h"
#include "records/Vehicles.h"
#include "records/modSystem.h"
#include "shopmaker/Random.h"
#include "shopmaker/SampleSteps.h"

namespace lantos::sample {

namespace {

constexpr DaySerial kReach = 14;  // days before and after
constexpr std::int32_t kFirstEstimate = 20001;
constexpr int kSaturday = 6, kSunday = 0;

// The share of the estimates that lies in each week, from two weeks back to two weeks ahead.
constexpr std::array<std::int32_t, 5> kWeekShare = {14, 24, 42, 14, 6};

constexpr std::int16_t kPast[] = {kDeparted,  kDeparted, kCompleted,   kDeparted,  kNoShow,   kDeparted,
                                  kCancelled, kDeparted, kRescheduled, kContinued, kDeparted, kCompleted};
constexpr std::int16_t kPresent[] = {kInProgress, kArrived,    kScheduled, kCompleted,    kInProgress,
                                     kScheduled,  kInProgress, kArrived,   kEstimateOnly, kDeparted};
constexpr std::int16_t kComing[] = {kScheduled, kScheduled, kScheduled, kEstimateOnly, kScheduled,
                                    kScheduled, kCancelled, kScheduled, kRescheduled,  kScheduled};

DaySerial WeekOf(DaySerial day) { return day - WeekdayIndex(day); }

// Fewer hours on last Monday and on this Thursday, and next Tuesday off.
void ImagineSpecialDays(SampleShop& shop, const SampleOptions& options) {
  const DaySerial week = WeekOf(options.date);
  shop.specialDays.push_back({week - 7 + 1, shop.standardHours[1] - 8, "One mechanic on vacation"});
  shop.specialDays.push_back({week + 4, shop.standardHours[4] / 2, "Training in the afternoon"});
  shop.specialDays.push_back({week + 7 + 2, 0, "Closed for inventory"});
}

// The more estimates, the more mechanics.
void ImagineStandardHours(SampleShop& shop, const SampleOptions& options) {
  constexpr double kDays = 5.5, kHoursEach = 2.6;
  const double aDay = options.estimates * (kWeekShare[2] / 100.0) / kDays * kHoursEach;
  const auto mechanics = static_cast<std::int32_t>(std::max(2.0, std::round(aDay / 8.0)));
  shop.standardHours.fill(mechanics * 8);
  shop.standardHours[kSunday] = 0;
  shop.standardHours[kSaturday] = mechanics * 4;
}

struct OpenDay {
  DaySerial day;
  std::int64_t weight;
};

std::vector<OpenDay> OpenDays(Random& random, const SampleShop& shop, const SampleOptions& options) {
  const DaySerial week = WeekOf(options.date);
  std::vector<OpenDay> days;
  for (DaySerial day = options.date - kReach; day <= options.date + kReach; ++day) {
    const std::int32_t hours = AvailableOn(shop, day);
    if (hours == 0) continue;
    const auto share = static_cast<std::size_t>((WeekOf(day) - week) / 7 + 2);
    days.push_back({day, static_cast<std::int64_t>(kWeekShare[share]) * hours * random.Between(80, 120)});
  }
  return days;
}

std::int16_t NextStatus(DaySerial day, DaySerial today, std::array<std::size_t, 3>& turns) {
  if (day < today) return kPast[turns[0]++ % std::size(kPast)];
  if (day == today) return kPresent[turns[1]++ % std::size(kPresent)];
  return kComing[turns[2]++ % std::size(kComing)];
}

// Only customers who have a vehicle in service come; in a shop without vehicles anybody does.
void ChooseVisitor(Random& random, const SampleShop& shop, SampleEstimate& estimate) {
  const auto vehicles = static_cast<std::int32_t>(shop.vehicles.size());
  if (vehicles == 0) {
    estimate.customer = static_cast<std::size_t>(random.Below(static_cast<std::int32_t>(shop.customers.size())));
    return;
  }
  std::int32_t index = random.Below(vehicles);
  for (std::int32_t step = 0; step < vehicles; ++step, index = (index + 1) % vehicles) {
    if (shop.vehicles[static_cast<std::size_t>(index)].Get(vehicle::Deleted) != kVehicleDeleted) break;
  }
  estimate.vehicle = index * static_cast<FileLink>(VehicleRecord::kLength);
  estimate.customer = static_cast<std::size_t>(shop.vehicles[static_cast<std::size_t>(index)].Get(vehicle::Number) - 1);
}

}  // namespace

std::int32_t AvailableOn(const SampleShop& shop, DaySerial day) {
  for (const SampleSpecialDay& special : shop.specialDays) {
    if (special.date == day) return special.hours;
  }
  return shop.standardHours[static_cast<std::size_t>(WeekdayIndex(day))];
}

void ImagineSchedule(SampleShop& shop, const SampleOptions& options) {
  ImagineStandardHours(shop, options);
  ImagineSpecialDays(shop, options);
}

void ImagineEstimates(SampleShop& shop, const SampleOptions& options) {
  Random random(options.seed, kScheduleStream);
  const std::vector<OpenDay> days = OpenDays(random, shop, options);
  std::int64_t whole = 0;
  for (const OpenDay& open : days) whole += open.weight;
  std::array<std::size_t, 3> turns{};
  std::int64_t weight = 0;
  for (const OpenDay& open : days) {
    weight += open.weight;
    const auto upTo = static_cast<std::size_t>(options.estimates * weight / whole);
    while (shop.estimates.size() < upTo) {
      SampleEstimate& estimate = shop.estimates.emplace_back();
      estimate.scheduled = open.day;
      estimate.status = NextStatus(open.day, options.date, turns);
      estimate.created = std::min(open.day, options.date) - random.Below(9);
      ChooseVisitor(random, shop, estimate);
    }
  }
  std::stable_sort(shop.estimates.begin(), shop.estimates.end(),
                   [](const auto& a, const auto& b) { return a.created < b.created; });
  std::int32_t number = kFirstEstimate;
  for (SampleEstimate& estimate : shop.estimates) estimate.number = number++;
  shop.system.Put(sysrec::last_estimate_number, number);
}

}  // namespace lantos::sample
