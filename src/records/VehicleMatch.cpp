#include "records/VehicleMatch.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace lantos {

namespace {

bool HasSame(const VehicleRecord& a, const VehicleRecord& b, std::initializer_list<TextField> fields) {
  bool hasText = false;
  for (const TextField field : fields) {
    if (a.View(field) != b.View(field)) return false;
    hasText = hasText || !a.View(field).empty();
  }
  return hasText;
}

}  // namespace

std::optional<MatchedVehicle> MatchVehicle(Vehicles& vehicles, const VehicleRecord& wanted, FileLink firstVehicle,
                                           FileHandle handle) {
  std::array<std::optional<MatchedVehicle>, 3> candidates;
  const auto look = [&](const VehicleRecord& met, FileLink offset) {
    const bool isSame[] = {HasSame(wanted, met, {vehicle::VIN}), HasSame(wanted, met, {vehicle::LicenseNumber}),
                           HasSame(wanted, met, {vehicle::Year, vehicle::Make, vehicle::Model})};
    for (std::size_t i = 0; i < candidates.size(); ++i) {
      if (isSame[i] && !candidates[i]) candidates[i] = MatchedVehicle{met, offset};
    }
    return true;
  };
  vehicles.Walk(firstVehicle, look, handle);
  const auto* best =
      std::find_if(candidates.begin(), candidates.end(), [](const auto& each) { return each.has_value(); });
  return best == candidates.end() ? std::nullopt : *best;
}

}  // namespace lantos
