#pragma once

#include "estimatedb/de.h"
#include "shop/Shop.h"

namespace lantos {

// What the rest of the program asks of the employee screens: the maintenance, for as long as the person stays.
void EmployeeMaintenance(Shop& shop, de2& database);

}  // namespace lantos
