#include "shopmaker/SampleCrew.h"

#include <algorithm>
#include <limits>

#include "frame/Dates.h"

namespace lantos::sample {

Crew::Crew(const SampleShop& shop) {
  for (const EmployeeRecord& record : shop.employees) {
    const std::int32_t number = record.Get(employee::EmpNumber);
    const FileDate left = record.Get(employee::DateTerminated);
    const bool works = std::find(shop.technicians.begin(), shop.technicians.end(), number) != shop.technicians.end();
    if (!works && left <= 0) continue;  // writes the estimates
    members_.push_back({number, FromFileDate(record.Get(employee::DateHired)),
                        left > 0 ? FromFileDate(left) : std::numeric_limits<DaySerial>::max()});
  }
}

std::int32_t Crew::Pick(Random& random, DaySerial day) const {
  std::vector<std::int32_t> present;
  for (const Member& member : members_) {
    if (member.hired <= day && day < member.left) present.push_back(member.number);
  }
  if (!present.empty()) return random.Pick(present);
  const auto byHiring = [](const Member& one, const Member& other) { return one.hired < other.hired; };
  return std::min_element(members_.begin(), members_.end(), byHiring)->number;
}

}  // namespace lantos::sample
