#pragma once

#include "masters/inventory/frmInvList.h"

namespace lantos {

// Keeps the stock: serves what the person asks of the inventory list until they close it.
void InventoryMaintenance(Shop& shop, frmInvList& list);

}  // namespace lantos
