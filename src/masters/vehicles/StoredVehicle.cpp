#include "masters/vehicles/StoredVehicle.h"

#include "records/RecordMerge.h"

namespace lantos {

namespace {

// What a person can change. The first mileage and its date follow from these.
constexpr MergedField kFields[] = {
    {"Make", vehicle::Make},
    {"Model", vehicle::Model},
    {"Year", vehicle::Year},
    {"Engine size", vehicle::EngineSize},
    {"Transmission", vehicle::Transmission},
    {"VIN", vehicle::VIN},
    {"License", vehicle::LicenseNumber},
    {"State", vehicle::State},
    {"Mileage", vehicle::Mileage, MergedField::Reads::Whole},
    {"Date", vehicle::Date, MergedField::Reads::Day},
    {"Comment 1", vehicle::VComment[0]},
    {"Comment 2", vehicle::VComment[1]},
    {"Comment 3", vehicle::VComment[2]},
    {"Comment 4", vehicle::VComment[3]},
};

}  // namespace

VehicleStored StoreVehicle(Shop& shop, FileLink place, const VehicleRecord& read, VehicleRecord& ours,
                           const std::string& title) {
  RecordMerge merge(kFields, read, ours);
  std::optional<VehicleRecord> stored;
  const auto put = [&](VehicleRecord& onFile) {
    merge.Into(onFile);
    onFile.Put(vehicle::Number, ours.Get(vehicle::Number));
    Vehicles::FollowFirstMileage(onFile);
  };
  if (!merge.Run(shop.desktop, title, [&] { stored = shop.records.vehicles.Update(place, put); })) {
    return VehicleStored::GoneBack;
  }
  if (!stored) return VehicleStored::NotWritten;
  ours = *stored;
  return VehicleStored::Yes;
}

}  // namespace lantos
