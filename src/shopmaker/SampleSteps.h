#pragma once

#include "records/inventory/InventoryLayout.h"
#include "records/modSystem.h"
#include "shopmaker/SampleShop.h"
#include "shopmaker/SampleWork.h"

namespace lantos::sample {

// The steps that a shop is imagined in, each on what the ones before it made.
void ImagineStaff(SampleShop& shop, const SampleOptions& options);
void ImagineCustomers(SampleShop& shop, const SampleOptions& options);
void ImagineVehicles(SampleShop& shop, const SampleOptions& options);
void ImagineMakes(SampleShop& shop);
void ImagineParts(SampleShop& shop, const SampleOptions& options);
// The kits, which are parts themselves, from the parts there are; they count among options.parts.
void ImagineKits(SampleShop& shop, const SampleOptions& options);
std::int32_t KitCount(const SampleOptions& options);
void ImagineLists(SampleShop& shop, const SampleOptions& options);
void ImagineVendors(SampleShop& shop, const SampleOptions& options);
void ImagineSchedule(SampleShop& shop, const SampleOptions& options);
void ImagineEstimates(SampleShop& shop, const SampleOptions& options);

// Pays no tax.
inline bool IsFleet(const SampleShop& shop, std::size_t customer) {
  return !shop.customers[customer].View(customer::tax_id_number).empty();
}
inline std::size_t IndexOf(FileLink vehicle) { return static_cast<std::size_t>(vehicle) / VehicleRecord::kLength; }

// Mechanic hours of a day: the special day's, or the weekday's.
std::int32_t AvailableOn(const SampleShop& shop, DaySerial day);

// Prices at all levels by the markups of the shop.
void SetPrices(InventoryRecord& part, Cents cost, const SystemRecord& system);
// A part at the end of the file, with its tag.
void AddPart(SampleShop& shop, const InventoryRecord& part);

// What stands on the estimates of the shop; the days and statuses are there already.
void ImagineWork(SampleShop& shop, const SampleOptions& options);

// The work orders of three years past, and those that the estimates of these days were converted to. Names them in the
// followups.
void ImagineWorkorders(SampleShop& shop, const SampleOptions& options);

// Streams of the generator, one a matter.
enum Stream : std::uint64_t {
  kStaffStream = 1,
  kCustomerStream,
  kVehicleStream,
  kPartStream,
  kScheduleStream,
  kWorkStream,
  kListStream,
  kWorkorderStream,
  kVendorStream
};

// The rows of Lantos.mdb.
void WriteEstimates(de& database, const SampleShop& shop, const TellMaking& tell);

// The tags, the archive, the texts of the active work orders and the usage history, one work order after the other.
// The result is the newest usage record of each part, by its index.
std::vector<FileLink> WriteWorkorders(ShopDirectory& directory, const SampleShop& shop, Clock& clock,
                                      const TellMaking& tell);

}  // namespace lantos::sample
