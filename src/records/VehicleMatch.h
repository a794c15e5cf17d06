#pragma once

#include "records/Vehicles.h"

namespace lantos {

// Looks for the work record among a customer's vehicles, from the first link of their chain: the same VIN counts most,
// then the same licence, then the same year, make and model; of each kind the first in the chain. What was found
// becomes the work record, and CurrentVehicleOffset its place; with nothing found both stay. Opens the file itself for
// kNoHandle.
bool MatchVehicle(Vehicles& vehicles, FileLink firstVehicle, FileHandle handle = kNoHandle);

}  // namespace lantos
