#pragma once

#include <string>
#include <string_view>

#include "shop/Shop.h"

namespace lantos {

// Shows, to be printed from there, what the shop has done to a vehicle in the last three years. The vehicle is said by
// its year, make and model. False, and nothing shown, when the VIN is blank or nothing was done.
bool VehicleHistoryReport(Shop& shop, std::string_view vin, const std::string& vehicle);

}  // namespace lantos
