#pragma once

#include <vector>

#include "records/inventory/Inventory.h"
#include "ui/Controls.h"

namespace lantos {

// The columns of the inventory list. Whether parts are marked as stocked is the shop's choice.
enum class StockedColumn { Shown, Absent };
std::vector<ui::GridColumn> PartColumns(StockedColumn stocked);
// A part's cells in the order of the columns, from its tag in the list.
ui::GridRow PartCells(const Inventory& inventory, Inventory::PartIndex part, StockedColumn stocked);

}  // namespace lantos
