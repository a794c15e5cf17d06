#include <unordered_set>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "estimatedb/EstimateDatabase.h"
#include "records/Customers.h"

namespace lantos {

// An estimate that was just begun has no customer yet, and its vehicle's link is 0 by default.
void FindEstimateLinks(ShopView& shop, const Tell& tell) {
  std::unordered_set<std::int64_t> known;
  for (const CustomerTag& tag : shop.flat.Records<CustomerTag>(kCustomerTagFile)) {
    known.insert(tag.Get(customertag::Number));
  }
  const auto vehicles = shop.flat.Records<VehicleRecord>(kVehicleFile);
  for (const EstimateRows::Estimate& estimate : shop.Estimates().estimates) {
    const auto complain = [&](const char* field, std::string words) {
      tell({std::string(kLantosDatabase), fmt::format("estimate {:06}", estimate.number), field, std::move(words)});
    };
    if (estimate.customer != 0 && !known.contains(estimate.customer)) {
      complain("CustomerNumber", fmt::format("there is no customer {:06}", estimate.customer));
    }
    if (estimate.vehicle == kNoLink || (estimate.vehicle == 0 && estimate.customer == 0)) continue;
    std::size_t index = 0;
    const bool isLink = estimate.vehicle == static_cast<FileLink>(estimate.vehicle);
    if (!isLink || !LeadsTo<VehicleRecord>(static_cast<FileLink>(estimate.vehicle), vehicles, index)) {
      if (estimate.vehicle != 0)
        complain("VehicleLink", fmt::format("no record of {} begins where it leads", kVehicleFile));
    } else if (estimate.vehicle != 0 && estimate.customer != 0 &&
               vehicles[index].Get(vehicle::Number) != estimate.customer) {
      complain("VehicleLink",
               fmt::format("it leads to a vehicle of another customer, {:06}", vehicles[index].Get(vehicle::Number)));
    }
  }
}

}  // namespace lantos
