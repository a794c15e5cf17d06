#pragma once

#include <string>

#include "admin/SystemFields.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// Who the shop is: its name, address and numbers, as the papers have them.
class frmCompanyInfo : public OkCancelForm {
 public:
  explicit frmCompanyInfo(Shop& shop);

  ui::TextBox company_name{*this, "company_name"};
  ui::TextBox extra_company_name{*this, "extra_company_name"};
  ui::TextBox company_address{*this, "company_address"};
  ui::TextBox company_city{*this, "company_city"};
  ui::TextBox company_state{*this, "company_state"};
  ui::TextBox company_zip{*this, "company_zip"};
  ui::TextBox company_phone1{*this, "company_phone1"};
  ui::TextBox company_phone2{*this, "company_phone2"};
  ui::TextBox state_reg_number{*this, "state_reg_number"};
  ui::TextBox fed_id_number{*this, "fed_id_number"};
  ui::TextBox state_id_number{*this, "state_id_number"};
  ui::TextBox local_id_number{*this, "local_id_number"};
  ui::Button OKButton{*this, "OKButton", "OK"};
  ui::Button CancelButton{*this, "CancelButton", "Cancel"};

 private:
  void OnLoad() override;
  void Accept() override;
  void AddFields();
  // False when the person wants to type the name anew.
  bool MayNameStand();

  Shop& shop_;
  SystemFields fields_{*this};
  std::string savedName_;
};

}  // namespace lantos
