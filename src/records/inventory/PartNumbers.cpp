#include "records/inventory/PartNumbers.h"

#include "frame/Text.h"

namespace lantos {

namespace {

// Whether the part that was read isn't any more the one that the list has.
bool IsAnother(const Inventory& inventory, Inventory::PartIndex index) {
  return inventory.CurrentInv.Get(inventory::Deleted) == 1 || inventory.CurrentInvTag.View(inventorytag::StockNumber) !=
                                                                  inventory.Tag(index).View(inventorytag::StockNumber);
}

}  // namespace

PartUpdated DeletePart(Inventory& inventory, Inventory::PartIndex index) {
  const Inventory::OneUpdate update(inventory);
  return UntilNotOvertaken([&] {
    FileLink offset = kNoLink;
    if (!inventory.ReadInventory(offset, index)) return PartUpdated::GivenUp;
    if (IsAnother(inventory, index)) return PartUpdated::WasDeleted;
    inventory.CurrentInv.Put(inventory::Deleted, 1);
    inventory.CurrentInvTag.Put(inventorytag::StockNumber, "");
    inventory.WriteInventory(offset, index, Inventory::Core::Stays, Inventory::Broadcast::No);
    return PartUpdated::Yes;
  });
}

PartUpdated ChangePartNumber(Inventory& inventory, Inventory::PartIndex index, std::string_view newNumber) {
  const Inventory::OneUpdate update(inventory);
  return UntilNotOvertaken([&] {
    FileLink offset = kNoLink;
    if (!inventory.ReadInventory(offset, index)) return PartUpdated::GivenUp;
    if (IsAnother(inventory, index)) return PartUpdated::WasDeleted;
    const std::string_view number = TrimView(newNumber);
    // Another copy may have given it to a part since the list was looked at.
    if (inventory.FindTagOf(number) != kNoLink) return PartUpdated::NumberIsTaken;
    inventory.CurrentInv.Put(inventory::StockNumber, number);
    inventory.CurrentInvTag.Put(inventorytag::StockNumber, number);
    inventory.CurrentInv.Put(inventory::UsageLink, kNoLink);
    inventory.CurrentInv.Put(inventory::ReceivingLink, kNoLink);
    inventory.WriteInventory(offset, index, Inventory::Core::Stays, Inventory::Broadcast::Yes);
    return PartUpdated::Yes;
  });
}

}  // namespace lantos
