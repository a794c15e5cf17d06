#pragma once

#include <memory>

#include "estimatedb/EstimateDatabase.h"
#include "records/OpenedFile.h"
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

// Which of the nine columns an older database lacks.
enum class SnapshotGap { None, Engines, All };

// Fills snapshot columns that have just been added to Estimates, in every row. What may have to ask the person comes
// first, in Prepare, so that nobody is kept out of the database meanwhile. Both throw when the person gives up on a
// vehicle or customer file.
class SnapshotFilling {
 public:
  SnapshotFilling(EstimateDatabase& database, Environment& environment, Records& records);
  ~SnapshotFilling();

  // Opens the vehicle file, and looks up the customers where the gap needs them.
  void Prepare(SnapshotGap gap);
  // All: all nine, from the vehicle that the row is linked to. Engines: engine and transmission, from the vehicle of
  // the row's customer that is most like the snapshot.
  void Fill(SnapshotGap gap);

 private:
  class VehicleMatcher;

  template <class Use>
  void ForEachEstimate(Use use);
  void FillAll();
  void FillEngines();

  EstimateDatabase& database_;
  Records& records_;
  OpenedFile file_;
  std::unique_ptr<VehicleMatcher> matcher_;
};

}  // namespace lantos
