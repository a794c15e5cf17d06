#include "masters/inventory/frmDept.h"

#include "frame/Text.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

frmDept::frmDept(Shop& shop, NameList& names, const std::string& caption, const std::string& label)
    : OkCancelForm(shop.desktop, shop.keys, "frmDept", caption), names_(names) {
  SetSize(5400, 1650);
  lblDeptName.SetCaption(label);
  DeptName.SetMaxLength(kNameColumn);
  UseButtons(cmdSave, cmdCancel);
  cmdSave.SetToolTip("Save <F10>");
  cmdCancel.SetToolTip("Close <Esc>");
  AskBeforeLosing(cmdCancel, DeptName);
}

void frmDept::Accept() {
  if (TrimView(DeptName.Text()).empty()) {
    GetDesktop().Tell(lblDeptName.Caption() + " is required.", Caption(), ui::Icon::Exclamation);
    return DeptName.SetFocus();
  }
  index_ = static_cast<int>(names_.Add(DeptName.Text()));
  Hide();
}

}  // namespace lantos
