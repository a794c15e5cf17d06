#include "shopmaker/SampleVisitLines.h"

#include <algorithm>

#include "records/LaborText.h"
#include "records/modSystem.h"
#include "shopmaker/SampleWork.h"

namespace lantos::sample {

namespace {

constexpr std::size_t kJobStep = 7;  // no job twice: it is prime to their count
static_assert(std::size(kJobs) % kJobStep != 0);

}  // namespace

SampleEstimate VisitLines::Imagine(Random& random, const SampleWorkorder& order, std::string_view make) const {
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
    for (const JobPart& wanted : entry.parts) AddPart(random, order, wanted, make, visit);
    job = (job + kJobStep) % std::size(kJobs);
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

void VisitLines::AddPart(Random& random, const SampleWorkorder& order, const JobPart& wanted, std::string_view make,
                         SampleEstimate& visit) const {
  if (wanted.kind == PartKind::None) return;
  const std::vector<std::size_t>& choice = shelf_.Fitting(wanted.kind, make);
  if (choice.empty()) return;
  const InventoryRecord& part = shop_.parts[random.Pick(choice)];
  const std::string_view number = part.View(inventory::StockNumber);
  const auto level = static_cast<std::size_t>(shop_.customers[order.customer].Get(customer::pricing_level));
  const bool isThere = std::any_of(visit.parts.begin(), visit.parts.end(),
                                   [&](const SamplePart& line) { return line.number == number; });
  if (isThere) return;
  visit.parts.push_back({std::string(number), part.Get(inventory::Description), wanted.quantity,
                         part.Get(inventory::Pricing[level]), part.Get(inventory::Pricing[0]),
                         part.Get(inventory::Pricing[3])});
}

Cents VisitLines::RateThen(DaySerial day) const {
  constexpr Cents kRise = 500;
  constexpr DaySerial kYear = 365;
  const DaySerial newest = shop_.workorders.back().opened;
  return shop_.system.Get(sysrec::shop_rate) - kRise * ((newest - day) / kYear);
}

}  // namespace lantos::sample
