#include "masters/inventory/frmInvPartDelete.h"

#include "records/inventory/PartNumbers.h"

namespace lantos {

frmInvPartDelete::frmInvPartDelete(Shop& shop, Inventory::PartIndex index)
    : OkCancelForm(shop.desktop, shop.keys, "frmInvPartDelete", "Delete Part"), shop_(shop), index_(index) {
  SetSize(7500, 3600);
  lblWarning[0].SetCaption("Warning: Deleting a part number can not be \"undone\".");
  lblWarning[1].SetCaption(
      "Make sure only one instance of Korvel is running, otherwise, Inventory will not be accurate.");
  UseButtons(cmdYes, cmdNo);
  SetDefaultButton(cmdNo);
  cmdYes.SetToolTip("Delete <F10>");
  cmdNo.SetToolTip("Cancel <Esc>");
  if (index == Inventory::kNoPart) return;
  const InventoryTag& tag = shop.records.inventory.Tag(index);
  lblPart.SetCaption(tag.Get(inventorytag::StockNumber));
  lblDesc.SetCaption(tag.Get(inventorytag::Description));
}

void frmInvPartDelete::Accept() {
  const PartUpdated done = DeletePart(shop_.records.inventory, index_);
  if (done == PartUpdated::WasDeleted) {
    shop_.desktop.Tell("Part " + lblPart.Caption() + " was deleted or renumbered by another user.", Caption(),
                       ui::Icon::Exclamation);
  }
  if (done != PartUpdated::GivenUp) Hide();
}

void DeleteAsked(Shop& shop, Inventory::PartIndex index) {
  frmInvPartDelete form(shop, index);
  form.ShowModal();
}

}  // namespace lantos
