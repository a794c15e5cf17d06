#pragma once

#include "estimatedb/de.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// A new repair code for the main application's database.
class frmRepairCode : public OkCancelForm {
 public:
  frmRepairCode(Shop& shop, de2& database);

  ui::Label lblCode{*this, "lblCode", "Repair &Code"};
  ui::TextBox txtRepairCode{*this, "txtRepairCode"};
  ui::Label lblDesc{*this, "lblDesc", "&Description"};
  ui::TextBox txtRepairCodeDesc{*this, "txtRepairCodeDesc"};
  ui::Button OKButton{*this, "OKButton", "OK"};
  ui::Button CancelButton{*this, "CancelButton", "Cancel"};

  std::string Code() const;

 private:
  void Accept() override;
  bool Insert();

  Shop& shop_;
  de2& database_;
};

}  // namespace lantos
