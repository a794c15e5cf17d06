#pragma once

#include <string>

#include "records/Vehicles.h"
#include "shop/Shop.h"

namespace lantos {

// Stores a vehicle that a screen has read and a person changed, at its place: field by field, since others may have
// stored it meanwhile (see RecordMerge; title is that of its question). ours becomes the vehicle as it was stored.
// What could not be written has been told.
enum class VehicleStored { Yes, GoneBack, NotWritten };
VehicleStored StoreVehicle(Shop& shop, FileLink place, const VehicleRecord& read, VehicleRecord& ours,
                           const std::string& title);

}  // namespace lantos
