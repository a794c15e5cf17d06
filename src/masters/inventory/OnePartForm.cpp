#include "masters/inventory/OnePartForm.h"

#include <utility>

namespace lantos {

OnePartForm::OnePartForm(Shop& shop, std::string name, std::string caption, Inventory::PartIndex index)
    : OkCancelForm(shop.desktop, shop.keys, std::move(name), std::move(caption)), shop_(shop), index_(index) {
  if (index == Inventory::kNoPart) return;
  const InventoryTag& tag = shop.records.inventory.Tag(index);
  lblPart.SetCaption(tag.Get(inventorytag::StockNumber));
  lblDesc.SetCaption(tag.Get(inventorytag::Description));
}

void OnePartForm::LeaveWith(PartUpdated done) {
  if (done == PartUpdated::WasDeleted) {
    shop_.desktop.Tell("Part " + lblPart.Caption() + " was deleted or renumbered by another user.", Caption(),
                       ui::Icon::Exclamation);
  }
  if (done != PartUpdated::GivenUp) Hide();
}

}  // namespace lantos
