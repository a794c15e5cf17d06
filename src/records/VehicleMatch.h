#pragma once

#include <optional>

#include "records/Vehicles.h"

namespace lantos {

struct MatchedVehicle {
  VehicleRecord record;
  FileLink offset = kNoLink;
};

// Looks for a vehicle among those of a customer, from the first link of their chain: the same VIN counts most, then the
// same licence, then the same year, make and model; of each kind the first in the chain. Opens the file itself for
// kNoHandle.
std::optional<MatchedVehicle> MatchVehicle(Vehicles& vehicles, const VehicleRecord& wanted, FileLink firstVehicle,
                                           FileHandle handle = kNoHandle);

}  // namespace lantos
