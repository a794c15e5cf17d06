#include "contents/extras/frmWOExtra.h"

#include <cmath>

#include "contents/AmountFields.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 8100;
constexpr ui::Twips kHeight = 4800;

// Cut to whole cents, where other screens round.
Cents WholeCents(const ui::TextBox& box) { return WholeOrOverflow(std::floor(HundredfoldOf(box))); }

}  // namespace

frmWOExtra::frmWOExtra(Shop& shop, const std::string& caption, const ExtraLine& line, const std::string& defaultTaxable)
    : OkCancelForm(shop.desktop, shop.keys, "frmWOExtra", caption),
      CurrentExtra(line),
      atLoad_(line),
      defaultTaxable_(defaultTaxable) {
  SetSize(kWidth, kHeight);
  Taxable.AddItem("Yes");
  Taxable.AddItem("No");
  WireFields();
  UseButtons(cmdSave, cmdCancel);
  cmdReset.OnClick = [this] {
    Vendor.SetFocus();  // first, since a field that is left is formatted
    ShowLine();
  };
  cmdReset.SetCausesValidation(false);
  cmdSave.SetToolTip("Save <F10>");
  cmdReset.SetToolTip("Reset <F2>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  AskBeforeLosing(cmdCancel, Vendor, VendorInvoice, Cost, Price, Taxable, Desc);
  AskInsteadOfDropping({.text = "Discard Changes?"});
}

void frmWOExtra::WireFields() {
  Vendor.SetMaxLength(31);
  VendorInvoice.SetMaxLength(10);
  for (ui::TextBox& box : Desc) box.SetMaxLength(64);
  numbers_.Add(Cost, "Cost");
  numbers_.Add(Price, "Price");
  for (ui::TextBox* box : {&Cost, &Price}) {
    numbers_.FormatOnLeaving(*box);
    numbers_.TakeOnSaving(*box);
  }
}

void frmWOExtra::ShowLine() {
  Vendor.SetText(Trim(atLoad_.Vendor));
  VendorInvoice.SetText(Trim(atLoad_.Invoice));
  Cost.SetText(FormatHundredths(atLoad_.Cost));
  Price.SetText(FormatHundredths(atLoad_.Price));
  for (std::size_t i = 0; i < Desc.size(); ++i) Desc[i].SetText(Trim(atLoad_.Desc[i]));
  const int row = Taxable.FindText(atLoad_.Taxable);
  Taxable.SetListIndex(row >= 0 ? row : Taxable.FindText(defaultTaxable_));
  MarkUnchanged();
}

void frmWOExtra::OnKeyDown(ui::KeyPress& key) {
  OkCancelForm::OnKeyDown(key);
  if (!key.Is("F2")) return;
  key.Clear();
  cmdReset.OnClick();
}

void frmWOExtra::Accept() {
  if (!numbers_.AreNumbers()) return;
  CurrentExtra.Vendor = Trim(Vendor.Text());
  CurrentExtra.Invoice = Trim(VendorInvoice.Text());
  CurrentExtra.Cost = WholeCents(Cost);
  CurrentExtra.Price = WholeCents(Price);
  for (std::size_t i = 0; i < Desc.size(); ++i) CurrentExtra.Desc[i] = Trim(Desc[i].Text());
  CurrentExtra.Taxable = Taxable.Text();
  SaveAndHide();
}

}  // namespace lantos
