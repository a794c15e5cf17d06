#pragma once

#include "masters/inventory/frmInvList.h"

namespace lantos {

// New parts by their numbers, one after the other. What else there is to a part is edited from the list.
class frmInvAdd : public OkCancelForm {
 public:
  frmInvAdd(Shop& shop, frmInvList& list);

  ui::Label lblStockNumber{*this, "lblStockNumber", "&Part Number"};
  ui::TextBox StockNumber{*this, "StockNumber"};
  ui::Label Msg{*this, "Msg", "Enter part number to add."};
  ui::Button cmdOK{*this, "cmdOK", "&Add"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Close"};

 private:
  void OnActivate() override { StockNumber.SetFocus(); }
  void Accept() override;
  void TellExists(const std::string& number);

  Shop& shop_;
  frmInvList& list_;
};

}  // namespace lantos
