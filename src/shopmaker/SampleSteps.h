#pragma once

#include "shopmaker/SampleShop.h"
#include "shopmaker/SampleWork.h"

namespace lantos::sample {

// The steps that a shop is imagined in, each on what the ones before it made.
void ImagineStaff(SampleShop& shop, const SampleOptions& options);
void ImagineCustomers(SampleShop& shop, const SampleOptions& options);
void ImagineVehicles(SampleShop& shop, const SampleOptions& options);
void ImagineMakes(SampleShop& shop);
void ImagineParts(SampleShop& shop, const SampleOptions& options);
void ImagineSchedule(SampleShop& shop, const SampleOptions& options);
void ImagineEstimates(SampleShop& shop, const SampleOptions& options);

// Mechanic hours of a day: the special day's, or the weekday's.
std::int32_t AvailableOn(const SampleShop& shop, DaySerial day);

// What stands on the estimates of the shop; the days and statuses are there already.
void ImagineWork(SampleShop& shop, const SampleOptions& options);

// Streams of the generator, one a matter.
enum Stream : std::uint64_t {
  kStaffStream = 1,
  kCustomerStream,
  kVehicleStream,
  kPartStream,
  kScheduleStream,
  kWorkStream
};

// The rows of Lantos.mdb.
void WriteEstimates(de& database, const SampleShop& shop);

}  // namespace lantos::sample
