#include "masters/employees/frmEmpNew.h"

#include "records/modEmployees.h"

namespace lantos {

frmEmpNew::frmEmpNew(Shop& shop, const std::string& original, Store store)
    : OkCancelForm(shop.desktop, shop.keys, "frmEmpNew", original.empty() ? "New Employee" : "Change Employee Name"),
      shop_(shop),
      store_(std::move(store)) {
  SetSize(6000, 2400);
  const bool renames = !original.empty();
  lblOriginal.SetVisible(renames);
  txtOriginal.SetVisible(renames);
  txtOriginal.SetText(original);
  txtOriginal.SetLocked(true);
  txtOriginal.SetTabStop(false);
  if (renames) lblEmpName.SetCaption("&New Employee Name");
  EmpName.SetMaxLength(employee::Name.width - 1);
  UseButtons(cmdSave, cmdCancel);
  cmdSave.SetToolTip("Save <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  AskBeforeLosing(cmdCancel, EmpName);
}

// Without a name no list would tell who it is.
void frmEmpNew::Accept() {
  const std::string name = Trim(EmpName.Text());
  if (name.empty()) {
    shop_.desktop.Tell("An employee must have a name.", Caption(), ui::Icon::Exclamation);
    return EmpName.SetFocus();
  }
  store_(name);
  MarkUnchanged();
  Hide();
}

}  // namespace lantos
