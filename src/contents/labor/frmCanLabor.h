#pragma once

#include "contents/Workbench.h"
#include "records/CannedLabor.h"
#include "records/inventory/Inventory.h"
#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// One standard job of the shop's list. Saving writes which inventory kit goes with its code; the entry itself is the
// caller's to keep.
class frmCanLabor : public SizedForm {
 public:
  enum class Mode { Add, Edit };
  frmCanLabor(Workbench& bench, Mode mode, const CannedLabor& entry);

  ui::Label lblCode{*this, "lblCode", "C&ode"};
  ui::TextBox txtCode{*this, "txtCode"};
  ui::Label lblHours{*this, "lblHours", "&Hours"};
  ui::TextBox Hours{*this, "Hours"};
  ui::Label lblShopRate{*this, "lblShopRate", "&Rate"};
  ui::TextBox ShopRate{*this, "ShopRate"};
  ui::Label lblTotalLabor{*this, "lblTotalLabor", "Tota&l"};
  ui::TextBox TotalLabor{*this, "TotalLabor"};
  ui::Label lblDesc{*this, "lblDesc", "&Description"};
  ui::TextBox txtDesc{*this, "txtDesc"};
  ui::Label lblKit{*this, "lblKit", "Inventory &Kit"};
  ui::ComboBox Combo1{*this, "Combo1"};
  ui::Button cmdSave{*this, "cmdSave"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

  CannedLabor Entry;  // as it came, and as it was saved

 private:
  void OnLoad() override;
  void Accept() override;
  void WireAmounts();
  void FillKits();
  std::string KitOnFile(const std::string& code);

  Workbench& bench_;
  NumberFields numbers_{*this};
};

}  // namespace lantos
