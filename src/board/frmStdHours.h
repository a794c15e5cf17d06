#pragma once

#include "estimatedb/de.h"
#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The shop's mechanic hours on each weekday, and the tolerance within which a day's total is good.
class frmStdHours : public OkCancelForm {
 public:
  frmStdHours(Shop& shop, de& database);

  static constexpr std::size_t kFudgeFactor = 7;  // behind the seven days

  ui::ControlArray<ui::Label, 8> lblHours{*this, "lblHours"};
  ui::ControlArray<ui::TextBox, 8> txtHours{*this, "txtHours"};
  ui::ControlArray<ui::Label, 3> lblHelp{*this, "lblHelp"};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Close"};

 private:
  void OnLoad() override;
  void Accept() override;

  de& database_;
  NumberFields numbers_{*this};
};

}  // namespace lantos
