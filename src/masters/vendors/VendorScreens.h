#pragma once

#include "shop/Shop.h"

namespace lantos {

// What the rest of the program asks of the vendor screens: the list, for as long as the person stays.
void VendorMaintenance(Shop& shop);
void ViewVendors(Shop& shop);

}  // namespace lantos
