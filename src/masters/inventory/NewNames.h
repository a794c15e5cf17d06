#pragma once

#include "shop/Shop.h"

namespace lantos {

// Asks for the name of a department or manufacturer and puts it into its list (Records::departments, manufacturers)
// and file. The place of the name in the list, which may have grown by names of other copies too; -1 when the person
// left without one.
int AddDepartment(Shop& shop);
int AddManufacturer(Shop& shop);

}  // namespace lantos
