#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "frame/Types.h"
#include "records/Customers.h"
#include "records/Vehicles.h"

namespace lantos {

// A line of labor, of an estimate or a work order.
struct WoLaborLine {
  std::string Date;  // "mm/dd/yyyy", or empty
  std::int32_t Mechanic = 0;  // employee number, 0 for none
  Hundredths Hours = 0;
  Cents Rate = 0;  // an hour
  Millionths Commission = 0;
  Cents Total = 0;  // what was typed, not Hours x Rate
  std::array<std::string, 8> Desc;
  std::int32_t FollowupMiles = 0;
  std::int32_t FollowupDays = 0;
  FileDate FollowupDate = 0;
  std::string RepairCode;
};

// A line of sublets or waste as the screens hold it.
struct ExtraLine {
  std::string Vendor;   // at most 31 characters
  std::string Invoice;  // at most 10
  Cents Cost = 0;
  Cents Price = 0;
  std::array<std::string, 4> Desc;
  std::string Taxable;  // "Yes" or "No"
};
inline constexpr std::string_view kSurchargeVendor = "SURCHARGE";

// The one current work order of a run. Nothing fills it while estimates are edited.
struct Workorder {
  std::int32_t WorkorderNumber = 0;
  std::string Pricing;  // the name of a price level
  FileDate DateOpen = 0;
  CustomerRecord Customer;
  VehicleRecord Vehicle;
};

}  // namespace lantos
