#include "records/VehicleMatch.h"

#include <array>
#include <initializer_list>
#include <optional>
#include <utility>

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

bool MatchVehicle(Vehicles& vehicles, FileLink firstVehicle, FileHandle handle) {
  const VehicleRecord wanted = vehicles.CurrentVehicle;
  const FileLink wantedOffset = vehicles.CurrentVehicleOffset;
  std::array<std::optional<std::pair<VehicleRecord, FileLink>>, 3> candidates;
  const auto look = [&](FileLink offset) {
    const VehicleRecord& met = vehicles.CurrentVehicle;
    const bool isSame[] = {HasSame(wanted, met, {vehicle::VIN}), HasSame(wanted, met, {vehicle::LicenseNumber}),
                           HasSame(wanted, met, {vehicle::Year, vehicle::Make, vehicle::Model})};
    for (std::size_t i = 0; i < candidates.size(); ++i) {
      if (isSame[i] && !candidates[i]) candidates[i].emplace(met, offset);
    }
    return true;
  };
  if (handle == kNoHandle) {
    vehicles.Walk(firstVehicle, look);
  } else {
    vehicles.Walk(firstVehicle, handle, look);
  }
  vehicles.CurrentVehicle = wanted;
  vehicles.CurrentVehicleOffset = wantedOffset;
  for (const auto& candidate : candidates) {
    if (!candidate) continue;
    vehicles.CurrentVehicle = candidate->first;
    vehicles.CurrentVehicleOffset = candidate->second;
    return true;
  }
  return false;
}

}  // namespace lantos
