#pragma once

#include <string>

#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// Asks for the file that a text is saved in, and saves it: a path of the person's own, not one of the shop's. A file
// that is there already is replaced whole, once the person says so.
class frmTrailExport : public OkCancelForm {
 public:
  // content in UTF-8; name is proposed, in the person's home directory.
  frmTrailExport(Shop& shop, std::string content, const std::string& name);

  ui::Label lblFile{*this, "lblFile", "&File"};
  ui::TextBox txtFile{*this, "txtFile"};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void OnActivate() override { txtFile.SetFocus(); }
  void Accept() override;

  Shop& shop_;
  std::string content_;
};

}  // namespace lantos
