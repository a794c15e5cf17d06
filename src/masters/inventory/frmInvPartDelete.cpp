#include "masters/inventory/frmInvPartDelete.h"

#include "records/inventory/PartNumbers.h"

namespace lantos {

frmInvPartDelete::frmInvPartDelete(Shop& shop, Inventory::PartIndex index)
    : OnePartForm(shop, "frmInvPartDelete", "Delete Part", index) {
  SetSize(7500, 3600);
  lblWarning[0].SetCaption("Warning: Deleting a part number can not be \"undone\".");
  lblWarning[1].SetCaption(kOnlyOneInstance);
  UseButtons(cmdYes, cmdNo);
  SetDefaultButton(cmdNo);
  cmdYes.SetToolTip("Delete <F10>");
  cmdNo.SetToolTip("Cancel <Esc>");
}

void frmInvPartDelete::Accept() { LeaveWith(DeletePart(shop_.records.inventory, index_)); }

void DeleteAsked(Shop& shop, Inventory::PartIndex index) {
  frmInvPartDelete form(shop, index);
  form.ShowModal();
}

}  // namespace lantos
