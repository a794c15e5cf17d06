#include "board/frmContinue.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "screens/EmployeeList.h"

namespace lantos {

frmContinue::frmContinue(Shop& shop) : OkCancelForm(shop.desktop, shop.keys, "frmContinue", "Continue"), shop_(shop) {
  SetSize(7200, 3000);
  txtHours.SetText("0.00");
  txtHours.OnValidate = [this](bool& keepFocus) { keepFocus = !CheckHours(); };
  Check1.OnClick = [this] { FillEmployees(); };
  txtHours.SetToolTip("Hours done on that day; they are taken off the new estimate");
  EmpList.SetToolTip("Who did them");
  OKButton.SetToolTip("Go on with the rest on the next business day <F10>");
  CancelButton.SetToolTip("Leave the estimate as it is <Esc>");
  UseButtons(OKButton, CancelButton);
  numbers_.Add(txtHours, "Hours", NumberFields::Read::Whole);
}

void frmContinue::SetDate(DaySerial date) {
  lblHours.SetCaption("Enter number of hours applied on " + FormatDate(date) + ".");
}

void frmContinue::OnLoad() { FillEmployees(); }

void frmContinue::FillEmployees() {
  FillEmployeeList(shop_, EmpList, {Check1.Value(), true});
  if (EmpList.ListCount() > 0) EmpList.SetListIndex(0);
}

bool frmContinue::CheckHours() {
  if (IsNumeric(txtHours.Text())) {
    txtHours.SetText(FormatFixed(ToNumber(txtHours.Text()), 2));
    return true;
  }
  shop_.desktop.Tell("Please enter a numeric amount (0.00)", "Invalid amount");
  return false;
}

void frmContinue::Accept() {
  if (!CheckHours()) return txtHours.SetFocus();
  ok = true;
  Hide();
}

}  // namespace lantos
