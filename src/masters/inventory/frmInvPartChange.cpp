#include "masters/inventory/frmInvPartChange.h"

#include "frame/Text.h"
#include "records/inventory/PartNumbers.h"

namespace lantos {

namespace {

constexpr const char* kHistoryIsLost =
    "Warning: Changing the part number will \"lose\" all receiving and usage history for the old part number. This "
    "change can not be \"undone\".";
constexpr const char* kRemovedBefore =
    "WARNING: You must have already removed the \"old\" part number from all POs and Workorders before changing the "
    "part number here.";

}  // namespace

frmInvPartChange::frmInvPartChange(Shop& shop, Inventory::PartIndex index)
    : OnePartForm(shop, "frmInvPartChange", "Change Part Number", index) {
  SetSize(7500, 4800);
  lblWarning[0].SetCaption(kHistoryIsLost);
  lblWarning[1].SetCaption(kOnlyOneInstance);
  lblWarning[2].SetCaption(kRemovedBefore);
  txtNewPart.SetMaxLength(inventory::StockNumber.width - 1);
  UseButtons(cmdOK, cmdCancel);
  cmdOK.SetToolTip("Change the part number <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
}

void frmInvPartChange::Accept() {
  const std::string number = Trim(txtNewPart.Text());
  if (number.empty()) return Refuse("You must supply a new part number, or [Cancel].");
  Inventory& inventory = shop_.records.inventory;
  inventory.FinishLoading();
  const std::string alreadyExists = "Part\r" + number + "\ralready exists.";
  if (inventory.FindPart(number) != Inventory::kNoPart) return Refuse(alreadyExists);
  const PartUpdated done = ChangePartNumber(inventory, index_, number);
  if (done == PartUpdated::NumberIsTaken) return Refuse(alreadyExists);
  LeaveWith(done);
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
