#pragma once

#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// Asks how much of an estimate was done on its day, and by whom, before the rest goes on the next one.
class frmContinue : public OkCancelForm {
 public:
  explicit frmContinue(Shop& shop);
  // The day of the estimate, for the label.
  void SetDate(DaySerial date);

  ui::Label lblHours{*this, "lblHours"};
  ui::TextBox txtHours{*this, "txtHours"};
  ui::Label lblEmployee{*this, "lblEmployee", "&Technician"};
  ui::ComboBox EmpList{*this, "EmpList"};
  ui::CheckBox Check1{*this, "Check1", "Active Emp. Only"};
  ui::Button OKButton{*this, "OKButton", "Continue <F10>"};
  ui::Button CancelButton{*this, "CancelButton", "Stop <Esc>"};

  bool ok = false;

 private:
  void OnLoad() override;
  void OnActivate() override { txtHours.SetFocus(); }
  void Accept() override;
  void FillEmployees();
  bool CheckHours();

  Shop& shop_;
  NumberFields numbers_{*this};
};

}  // namespace lantos
