#include "records/inventory/PartUpdate.h"

#include <algorithm>
#include <iterator>

namespace lantos {

namespace {

// Bytes behind the text's end stay where the text does.
void Follow(InventoryTag& tag, TextField field, std::string_view text) {
  if (tag.View(field) != text) tag.Put(field, text);
}

void FollowMaster(InventoryTag& tag, const InventoryRecord& master) {
  Follow(tag, inventorytag::StockNumber, master.View(inventory::StockNumber));
  Follow(tag, inventorytag::Description, master.View(inventory::Description));
  tag.Put(inventorytag::InStock, master.Get(inventory::QtyInStock));
  for (std::size_t level = 0; level < kPriceLevelNames.size(); ++level) {
    tag.Put(inventorytag::Pricing[level], master.Get(inventory::Pricing[level]));
  }
}

bool Names(const InventoryRecord& part, std::string_view alternate) {
  return std::any_of(std::begin(inventory::AltNumber), std::end(inventory::AltNumber),
                     [&](TextField field) { return part.View(field) == alternate; });
}

// An alternate that only went from one place to another stays an alternate: it has nothing to forget.
void CrossReference(Inventory& inventory, const InventoryRecord& before, const InventoryRecord& after) {
  const std::string number = after.Get(inventory::StockNumber);
  for (const TextField field : inventory::AltNumber) {
    const std::string_view was = before.View(field);
    const std::string_view is = after.View(field);
    if (was != is) inventory.CrossReferenceAlternate(number, Names(after, was) ? std::string_view() : was, is);
  }
}

// before is what the part was.
PartUpdated UpdateInTurn(Inventory& inventory, Inventory::PartIndex index,
                         const std::function<void(InventoryRecord& master)>& change, InventoryRecord& before) {
  std::optional<Inventory::Part> part = inventory.Read(index);
  if (!part) return PartUpdated::GivenUp;
  if (part->master.Get(inventory::Deleted) == 1) return PartUpdated::WasDeleted;
  before = part->master;
  change(part->master);
  FollowMaster(part->tag, part->master);
  const bool hadCore = before.Get(inventory::HasACore) == 1;
  inventory.Write(*part, index, hadCore ? Inventory::Core::Stays : Inventory::Core::Follows, Inventory::Broadcast::Yes);
  inventory.CurrentInvTag = part->tag;
  inventory.CurrentInv = part->master;
  return PartUpdated::Yes;
}

}  // namespace

PartUpdated UpdatePart(Inventory& inventory, Inventory::PartIndex index,
                       const std::function<void(InventoryRecord& master)>& change) {
  inventory.FinishLoading();  // its alternates and its core must not be taken for unknown
  const Inventory::OneUpdate update(inventory);
  InventoryRecord before;
  const PartUpdated updated = UntilNotOvertaken([&] { return UpdateInTurn(inventory, index, change, before); });
  if (updated == PartUpdated::Yes) CrossReference(inventory, before, InventoryRecord(inventory.CurrentInv));
  return updated;
}

}  // namespace lantos
