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
      shop_(shop),
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
}

void frmWOExtra::WireFields() {
  Vendor.SetMaxLength(31);
  VendorInvoice.SetMaxLength(10);
  for (ui::TextBox* box : {&Vendor, &VendorInvoice, &Cost, &Price}) box->OnChange = [this] { MarkChanged(); };
  for (ui::TextBox& box : Desc) {
    box.SetMaxLength(64);
    box.OnChange = [this] { MarkChanged(); };
  }
  Taxable.OnClick = [this] {
    if (Taxable.Text() != shownTaxable_) MarkChanged();
  };
  for (ui::TextBox* box : {&Cost, &Price}) {
    box->OnLostFocus = [box] { FormatAmount(*box); };
  }
}

void frmWOExtra::ShowLine() {
  showing_ = true;
  Vendor.SetText(Trim(CurrentExtra.Vendor));
  VendorInvoice.SetText(Trim(CurrentExtra.Invoice));
  Cost.SetText(FormatHundredths(CurrentExtra.Cost));
  Price.SetText(FormatHundredths(CurrentExtra.Price));
  for (std::size_t i = 0; i < Desc.size(); ++i) Desc[i].SetText(Trim(CurrentExtra.Desc[i]));
  const int row = Taxable.FindText(CurrentExtra.Taxable);
  Taxable.SetListIndex(row >= 0 ? row : Taxable.FindText(defaultTaxable_));
  shownTaxable_ = Taxable.Text();
  showing_ = false;
  changed_ = false;
  cmdCancel.SetCaption("Close");
}

void frmWOExtra::MarkChanged() {
  if (showing_ || changed_) return;
  changed_ = true;
  cmdCancel.SetCaption("Cancel");
}

void frmWOExtra::OnKeyDown(ui::KeyPress& key) {
  OkCancelForm::OnKeyDown(key);
  if (!key.Is("F2")) return;
  key.Clear();
  cmdReset.OnClick();
}

void frmWOExtra::OnQueryClose(bool& refuse) {
  Cancel();
  refuse = Visible();
}

void frmWOExtra::Accept() {
  CurrentExtra.Vendor = Trim(Vendor.Text());
  CurrentExtra.Invoice = Trim(VendorInvoice.Text());
  CurrentExtra.Cost = WholeCents(Cost);
  CurrentExtra.Price = WholeCents(Price);
  for (std::size_t i = 0; i < Desc.size(); ++i) CurrentExtra.Desc[i] = Trim(Desc[i].Text());
  CurrentExtra.Taxable = Taxable.Text();
  saved_ = true;
  Hide();
}

void frmWOExtra::Cancel() {
  if (changed_ &&
      shop_.desktop.Ask("Discard Changes?", Caption(), ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes) {
    return;
  }
  Hide();
}

}  // namespace lantos
