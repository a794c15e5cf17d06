#pragma once

#include <functional>
#include <string>

#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// Asks for an employee's name: a new one's, or another one.
class frmEmpNew : public OkCancelForm {
 public:
  // Stores the name. What it throws leaves the screen as it is.
  using Store = std::function<void(const std::string& name)>;
  // Without an original name it is a new employee's.
  frmEmpNew(Shop& shop, const std::string& original, Store store);

  ui::Label lblOriginal{*this, "lblOriginal", "Original Name"};
  ui::TextBox txtOriginal{*this, "txtOriginal"};
  ui::Label lblEmpName{*this, "lblEmpName", "Employee &Name"};
  ui::TextBox EmpName{*this, "EmpName"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void OnActivate() override { EmpName.SetFocus(); }
  void Accept() override;

  Shop& shop_;
  Store store_;
};

}  // namespace lantos
