#pragma once

#include <string>

#include "estimatedb/EstimateDatabase.h"
#include "shop/Shop.h"

namespace lantos {

// What somebody who helps from afar wants to know of this copy, line by line (ended by CR LF): version, licence,
// libraries, system, where the data lie, their engine, the run log, the last backup that was restored and compared.
std::string AboutText(const Shop& shop, EstimateDatabase& database);

}  // namespace lantos
