#pragma once

#include "estimatedb/EstimateDatabase.h"
#include "records/Vehicles.h"

namespace lantos {

// The nine columns of Estimates that keep the vehicle as it was when it was attached.
struct SnapshotColumn {
  std::string_view name;
  std::size_t width;
};
inline constexpr SnapshotColumn kSnapshotColumns[] = {
    {"VehYear", 5},  {"VehMake", 20},   {"VehModel", 20}, {"VehVIN", 20},   {"VehLic", 10},
    {"VehDate", 10}, {"VehMileage", 7}, {"VehEng", 12},   {"VehTrans", 12},
};

// What an estimate keeps of a vehicle, and a vehicle as an estimate tells of it: live, unchained.
de::VehicleSnapshot SnapshotOf(const VehicleRecord& record);
VehicleRecord VehicleOf(const de::VehicleSnapshot& snapshot, std::int32_t customer);
// Whether they agree, blanks around texts apart.
bool IsSnapshotOf(const de::VehicleSnapshot& snapshot, const VehicleRecord& record);
de::VehicleSnapshot SnapshotIn(const Estimate& estimate);
void PutSnapshot(Estimate& estimate, const de::VehicleSnapshot& snapshot);

// Fill columns that have just been added to every row of Estimates. Both throw when the person gives up on a
// vehicle or customer file; rows done so far stay done, and a later start doesn't take the work up again.

// All nine, from the vehicle that the row is linked to.
void FillSnapshots(EstimateDatabase& database, Environment& environment, Records& records);
// Engine and transmission, from the vehicle of the row's customer that is most like the snapshot.
void FillEngines(EstimateDatabase& database, Environment& environment, Records& records);

}  // namespace lantos
