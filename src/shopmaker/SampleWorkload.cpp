#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "estimatedb/modEstimates.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "records/inventory/InventoryLayout.h"
#include "records/modSystem.h"
#include "shopmaker/PartShelf.h"
#include "shopmaker/Random.h"
#include "shopmaker/SampleSteps.h"

namespace lantos::sample {

namespace {

// Scheduled hours of the day's available ones, in per cent, by weekday: this week shows every colour of the board.
constexpr std::array<std::int32_t, 7> kThisWeek = {0, 98, 124, 103, 100, 72, 55};
constexpr std::array<std::int32_t, 7> kPastWeeks = {0, 92, 84, 101, 88, 78, 60};
constexpr std::array<std::int32_t, 7> kComingWeeks = {0, 75, 60, 42, 50, 30, 20};

constexpr Hundredths kStep = 10, kLeast = 20;

std::string JoinLines(const std::string_view* begin, const std::string_view* end) {
  constexpr std::size_t kLines = 8;
  std::string text;
  for (std::size_t i = 0; i < kLines; ++i) {
    if (i > 0) text += '\t';
    if (begin + i < end) text += begin[i];
  }
  return text;
}

std::string_view MakeOf(const SampleShop& shop, const SampleEstimate& estimate) {
  if (estimate.vehicle == kNoLink) return {};
  return shop.vehicles[IndexOf(estimate.vehicle)].View(vehicle::Make);
}

void AddPart(Random& random, const SampleShop& shop, const PartShelf& shelf, const JobPart& wanted,
             SampleEstimate& estimate) {
  if (wanted.kind == PartKind::None) return;
  const std::vector<std::size_t>& choice = shelf.Fitting(wanted.kind, MakeOf(shop, estimate));
  if (choice.empty()) return;
  const InventoryRecord& part = shop.parts[random.Pick(choice)];
  const std::string number = part.Get(inventory::StockNumber);
  // The stock number is the line's key.
  for (const SamplePart& there : estimate.parts) {
    if (there.number == number) return;
  }
  const auto level = static_cast<std::size_t>(shop.customers[estimate.customer].Get(customer::pricing_level));
  estimate.parts.push_back({number, part.Get(inventory::Description).substr(0, 38), wanted.quantity,
                            part.Get(inventory::Pricing[level]), part.Get(inventory::Pricing[0]),
                            part.Get(inventory::Pricing[3])});
}

void AddJobs(Random& random, const SampleShop& shop, const PartShelf& shelf, SampleEstimate& estimate) {
  const std::int32_t mechanic = random.Pick(shop.technicians);
  const std::int32_t count = random.Between(1, 4);
  std::int32_t job = random.Below(static_cast<std::int32_t>(std::size(kJobs)));
  for (std::int32_t i = 0; i < count; ++i) {
    const JobEntry& entry = kJobs[static_cast<std::size_t>(job)];
    const bool another = random.Chance(15);
    estimate.labors.push_back({another ? random.Pick(shop.technicians) : mechanic, entry.hours,
                               shop.system.Get(sysrec::shop_rate), JoinLines(entry.lines, std::end(entry.lines))});
    for (const JobPart& wanted : entry.parts) AddPart(random, shop, shelf, wanted, estimate);
    // A step that is prime to the count of jobs: no job twice on one estimate.
    job = (job + 7) % static_cast<std::int32_t>(std::size(kJobs));
  }
}
static_assert(std::size(kJobs) % 7 != 0);

void AddExtras(Random& random, SampleEstimate& estimate) {
  if (random.Chance(35)) estimate.comments = random.Pick(kEstimateComments);
  if (random.Chance(12)) {
    const ExtraEntry& sublet = random.Pick(kSublets);
    estimate.sublets.push_back(ExtraLine(sublet, fmt::format("{:05}", random.Between(1000, 99999))));
  }
  if (random.Chance(18)) estimate.wastes.push_back(ExtraLine(random.Pick(kWastes), ""));
  if (random.Chance(20)) {
    auto& note = estimate.notes.emplace_back();
    std::size_t line = 0;
    for (const std::string_view text : random.Pick(kNotes)) note[line++] = text;
  }
}

std::int32_t TargetPercent(DaySerial day, const SampleOptions& options) {
  const DaySerial week = options.date - WeekdayIndex(options.date);
  const auto weekday = static_cast<std::size_t>(WeekdayIndex(day));
  if (day < week) return kPastWeeks[weekday];
  return day < week + 7 ? kThisWeek[weekday] : kComingWeeks[weekday];
}

// Stretches or shrinks a day's labor lines until the day is as full as it shall be, in steps of a tenth of an hour.
void FillDay(std::vector<SampleLabor*>& lines, Hundredths target) {
  constexpr std::int64_t kMostStretch = 4;  // a day with hardly any estimates stays a quiet one
  std::int64_t sum = 0;
  for (const SampleLabor* line : lines) sum += line->hours;
  if (sum == 0 || target > kMostStretch * sum) return;
  std::int64_t filled = 0;
  for (SampleLabor* line : lines) {
    const std::int64_t share = DivideHalfEven(static_cast<std::int64_t>(line->hours) * target, sum * kStep) * kStep;
    line->hours = std::max(kLeast, static_cast<Hundredths>(share));
    filled += line->hours;
  }
  // What the rounding left over goes to the longest line.
  SampleLabor& longest =
      **std::max_element(lines.begin(), lines.end(), [](const auto* a, const auto* b) { return a->hours < b->hours; });
  longest.hours = std::max(kLeast, static_cast<Hundredths>(longest.hours + target - filled));
}

void FillDays(SampleShop& shop, const SampleOptions& options) {
  std::map<DaySerial, std::vector<SampleLabor*>> days;
  for (SampleEstimate& estimate : shop.estimates) {
    if (!modEstimates::CountsTowardDay(estimate.status)) continue;
    for (SampleLabor& labor : estimate.labors) days[estimate.scheduled].push_back(&labor);
  }
  for (auto& [day, lines] : days) {
    const std::int64_t target = static_cast<std::int64_t>(AvailableOn(shop, day)) * TargetPercent(day, options);
    FillDay(lines, static_cast<Hundredths>(DivideHalfEven(target, kStep) * kStep));
  }
}

}  // namespace

void ImagineWork(SampleShop& shop, const SampleOptions& options) {
  Random random(options.seed, kWorkStream);
  const PartShelf shelf(shop);
  for (SampleEstimate& estimate : shop.estimates) {
    AddJobs(random, shop, shelf, estimate);
    AddExtras(random, estimate);
  }
  FillDays(shop, options);
}

}  // namespace lantos::sample
