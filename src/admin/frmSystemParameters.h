#pragma once

#include <string>

#include "admin/SystemFields.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// The shop's rates, taxes, markups, surcharges and messages. The backup command is this workstation's.
class frmSystemParameters : public OkCancelForm {
 public:
  explicit frmSystemParameters(Shop& shop);

  ui::TextBox shop_rate{*this, "shop_rate"};
  ui::Frame frameLaborSurcharge{*this, "frameLaborSurcharge", "Labor Surcharge"};
  ui::TextBox labor_surcharge_percent{*this, "labor_surcharge_percent"};
  ui::ControlArray<ui::OptionButton, 2> optLaborSurcharge{*this, "optLaborSurcharge"};  // percent, dollars
  ui::Frame framePartsSurcharge{*this, "framePartsSurcharge", "Parts Surcharge"};
  ui::TextBox parts_surcharge_percent{*this, "parts_surcharge_percent"};
  ui::ControlArray<ui::OptionButton, 2> optPartsSurcharge{*this, "optPartsSurcharge"};
  ui::TextBox surcharge_description{*this, "surcharge_description"};
  ui::CheckBox surcharge_is_sublet{*this, "surcharge_is_sublet", "Surcharge is a Sublet"};
  ui::ControlArray<ui::TextBox, 4> tax_rate{*this, "tax_rate"};  // parts, labor, sublet, waste
  ui::ControlArray<ui::TextBox, 3> markups{*this, "markups"};    // wholesale, resale, retail
  ui::TextBox hand_msg1{*this, "hand_msg1"};
  ui::TextBox hand_msg2{*this, "hand_msg2"};
  ui::TextBox fleet_terms{*this, "fleet_terms"};
  ui::TextBox fleet_late_charge_percent{*this, "fleet_late_charge_percent"};
  ui::TextBox shell_command_line{*this, "shell_command_line"};
  ui::TextBox txtBackupCmd{*this, "txtBackupCmd"};
  ui::CheckBox cbBackupCmdWait{*this, "cbBackupCmdWait", "Wait for completion?"};
  ui::Button OKButton{*this, "OKButton", "OK"};
  ui::Button CancelButton{*this, "CancelButton", "Cancel"};

 private:
  void OnLoad() override;
  void Accept() override;
  void AddFields();
  void WireSurcharges();
  void SaveBackup();

  Shop& shop_;
  SystemFields fields_{*this};
  std::string backupCommand_;  // as shown
  bool backupWait_ = true;
};

}  // namespace lantos
