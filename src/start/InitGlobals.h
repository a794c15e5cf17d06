#pragma once

#include <string>
#include <vector>

#include "estimatedb/EstimateDatabase.h"
#include "masters/inventory/frmInvList.h"
#include "shop/Shop.h"

namespace lantos {

// Everything that must stand before the board can be filled, in order: data directory, system record, log, splash
// window, databases and their upgrade, update file, options, the inventory list, shared tables. False ends the process
// silently: nobody told where the files are, or the start was stopped. What a start can't go on with is thrown:
// FileError, DatabaseError, std::invalid_argument of a setting. journals gets the names of those that conversions have
// left in the data directory.
bool InitGlobals(Shop& shop, EstimateDatabase& database, frmInvList& inventoryList, std::vector<std::string>& journals);

}  // namespace lantos
