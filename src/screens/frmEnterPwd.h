#pragma once

#include <string_view>

#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// Asks for the password of one section of the program.
class frmEnterPwd : public SizedForm {
 public:
  frmEnterPwd(Shop& shop, std::string_view section);

  bool ok = false;

  ui::Label lblPassword{*this, "lblPassword", "Password?"};
  ui::TextBox Pwd{*this, "Pwd"};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

 private:
  void Accept() override;
  void Cancel() override;
};

}  // namespace lantos
