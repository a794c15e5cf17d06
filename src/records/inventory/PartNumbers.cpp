#include "records/inventory/PartNumbers.h"

#include "frame/Text.h"

namespace lantos {

bool DeletePart(Inventory& inventory, FileLink offset, Inventory::PartIndex index) {
  const Inventory::OneUpdate update(inventory);
  if (!inventory.ReadInventory(offset, index)) return false;
  inventory.CurrentInv.Put(inventory::Deleted, 1);
  inventory.CurrentInvTag.Put(inventorytag::StockNumber, "");
  inventory.WriteInventory(offset, index, Inventory::Core::Stays, Inventory::Broadcast::No);
  return true;
}

bool ChangePartNumber(Inventory& inventory, FileLink offset, Inventory::PartIndex index, std::string_view newNumber) {
  const Inventory::OneUpdate update(inventory);
  if (!inventory.ReadInventory(offset, index)) return false;
  const std::string_view number = TrimView(newNumber);
  inventory.CurrentInv.Put(inventory::StockNumber, number);
  inventory.CurrentInvTag.Put(inventorytag::StockNumber, number);
  inventory.CurrentInv.Put(inventory::UsageLink, kNoLink);
  inventory.CurrentInv.Put(inventory::ReceivingLink, kNoLink);
  inventory.WriteInventory(offset, index, Inventory::Core::Stays, Inventory::Broadcast::Yes);
  return true;
}

}  // namespace lantos
