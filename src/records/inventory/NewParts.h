#pragma once

#include <string_view>

#include "records/inventory/Inventory.h"

namespace lantos {

// Adds a part as Inventory::NewInventoryPart does, unless there is one of that number: in the list in memory, which
// must be loaded, or in the tag file, where another copy may have put it a moment ago. Of several copies that add at
// once each has its turn. The files are waited for as Inventory::Write does.
enum class NewPart { Added, Exists };
NewPart AddNewPart(Inventory& inventory, std::string_view stockNumber, Inventory::PartIndex& index);

}  // namespace lantos
