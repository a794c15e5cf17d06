#include "contents/labor/frmRepairCode.h"

#include "frame/Text.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 6000;
constexpr ui::Twips kHeight = 2400;

}  // namespace

frmRepairCode::frmRepairCode(Shop& shop, de2& database)
    : OkCancelForm(shop.desktop, shop.keys, "frmRepairCode", "New Repair Code"), shop_(shop), database_(database) {
  SetSize(kWidth, kHeight);
  txtRepairCode.SetMaxLength(6);
  txtRepairCodeDesc.SetMaxLength(50);
  UseButtons(OKButton, CancelButton);
  OKButton.SetToolTip("OK <F10>");
  CancelButton.SetToolTip("Cancel <Esc>");
  AskBeforeLosing(CancelButton, txtRepairCode, txtRepairCodeDesc);
}

std::string frmRepairCode::Code() const { return Trim(txtRepairCode.Text()); }

void frmRepairCode::Accept() {
  const bool noCode = Code().empty();
  const bool noDescription = Trim(txtRepairCodeDesc.Text()).empty();
  if (noCode) shop_.desktop.Tell("The Repair Code can not be blank", Caption());
  if (noDescription) shop_.desktop.Tell("The Description can not be blank", Caption());
  if (noCode || noDescription) return (noCode ? txtRepairCode : txtRepairCodeDesc).SetFocus();
  if (!Insert()) return;
  SaveAndHide();
}

bool frmRepairCode::Insert() {
  try {
    database_.AddRepairCode(Code(), Trim(txtRepairCodeDesc.Text()));
    return true;
  } catch (const DatabaseError& error) {
    shop_.environment.log.Write(error.what());
    shop_.desktop.Tell(std::to_string(error.Number()) + " - " + error.Words() + "\r\nError inserting Repair Code!",
                       Caption());
    return false;
  }
}

}  // namespace lantos
