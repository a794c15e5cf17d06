#include "masters/inventory/frmInvPartChange.h"

#include "frame/Text.h"
#include "records/inventory/PartNumbers.h"

namespace lantos {

namespace {

constexpr const char* kWarnings[3] = {
    "Warning: Changing the part number will \"lose\" all receiving and usage history for the old part number. This "
    "change can not be \"undone\".",
    "Make sure only one instance of Korvel is running, otherwise, Inventory will not be accurate.",
    "WARNING: You must have already removed the \"old\" part number from all POs and Workorders before changing the "
    "part number here."};

}  // namespace

frmInvPartChange::frmInvPartChange(Shop& shop, Inventory::PartIndex index)
    : OkCancelForm(shop.desktop, shop.keys, "frmInvPartChange", "Change Part Number"), shop_(shop), index_(index) {
  SetSize(7500, 4800);
  for (std::size_t i = 0; i < lblWarning.size(); ++i) lblWarning[i].SetCaption(kWarnings[i]);
  txtNewPart.SetMaxLength(inventory::StockNumber.width - 1);
  UseButtons(cmdOK, cmdCancel);
  cmdOK.SetToolTip("Change the part number <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  if (index == Inventory::kNoPart) return;
  const InventoryTag& tag = shop.records.inventory.Tag(index);
  lblPart.SetCaption(tag.Get(inventorytag::StockNumber));
  lblDesc.SetCaption(tag.Get(inventorytag::Description));
}

void frmInvPartChange::Accept() {
  const std::string number = Trim(txtNewPart.Text());
  if (number.empty()) return Refuse("You must supply a new part number, or [Cancel].");
  Inventory& inventory = shop_.records.inventory;
  inventory.FinishLoading();
  if (inventory.FindPart(number) != Inventory::kNoPart) return Refuse("Part\r" + number + "\ralready exists.");
  const PartUpdated done = ChangePartNumber(inventory, index_, number);
  if (done == PartUpdated::WasDeleted) {
    shop_.desktop.Tell("Part " + lblPart.Caption() + " was deleted or renumbered by another user.", Caption(),
                       ui::Icon::Exclamation);
  }
  if (done != PartUpdated::GivenUp) Hide();
}

void frmInvPartChange::Refuse(const std::string& why) {
  shop_.desktop.Tell(why, Caption());
  txtNewPart.SetFocus();
}

void ChangeNumberOf(Shop& shop, Inventory::PartIndex index) {
  frmInvPartChange form(shop, index);
  form.ShowModal();
}

}  // namespace lantos
