#pragma once

#include "contents/Workbench.h"
#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// One line of sublets or waste.
class frmWOExtra : public OkCancelForm {
 public:
  // defaultTaxable serves a line that says neither "Yes" nor "No".
  frmWOExtra(Shop& shop, const std::string& caption, const ExtraLine& line, const std::string& defaultTaxable);

  ui::Label lblVendor{*this, "lblVendor", "&Vendor"};
  ui::TextBox Vendor{*this, "Vendor"};
  ui::Label lblVendorInvoice{*this, "lblVendorInvoice", "&Invoice"};
  ui::TextBox VendorInvoice{*this, "VendorInvoice"};
  ui::Label lblCost{*this, "lblCost", "Cos&t"};
  ui::TextBox Cost{*this, "Cost"};
  ui::Label lblPrice{*this, "lblPrice", "&Price"};
  ui::TextBox Price{*this, "Price"};
  ui::Label lblTaxable{*this, "lblTaxable", "Ta&xable"};
  ui::ComboBox Taxable{*this, "Taxable"};
  ui::Label lblDesc{*this, "lblDesc", "&Description"};
  ui::ControlArray<ui::TextBox, 4, 1> Desc{*this, "Desc"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdReset{*this, "cmdReset", "&Reset"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

  ExtraLine CurrentExtra;  // as it came, and as it was saved

 private:
  void OnLoad() override { ShowLine(); }
  void OnActivate() override { Vendor.SetFocus(); }
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  void WireFields();
  void ShowLine();

  const ExtraLine atLoad_;
  std::string defaultTaxable_;
  NumberFields numbers_{*this};
};

}  // namespace lantos
