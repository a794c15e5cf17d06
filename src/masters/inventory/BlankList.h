#pragma once

#include <string>

#include "shop/Shop.h"
#include "ui/Form.h"

namespace lantos {

// The window of a list that only the main application keeps: blank, but for a heading that says so.
class BlankList : public ui::Form {
 public:
  ui::Label lblHeading{*this, "lblHeading"};
  ui::Button cmdClose{*this, "cmdClose", "&Close"};

 protected:
  BlankList(Shop& shop, std::string name, std::string caption, const std::string& heading);

  void OnKeyDown(ui::KeyPress& key) override;

 private:
  Shop& shop_;
};

}  // namespace lantos
