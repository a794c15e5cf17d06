#pragma once

#include "masters/inventory/OnePartForm.h"

namespace lantos {

// Gives a part another number.
class frmInvPartChange : public OnePartForm {
 public:
  frmInvPartChange(Shop& shop, Inventory::PartIndex index);

  ui::Label lblNewPart{*this, "lblNewPart", "&New part number"};
  ui::TextBox txtNewPart{*this, "txtNewPart"};
  ui::ControlArray<ui::Label, 3> lblWarning{*this, "lblWarning"};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void OnActivate() override { txtNewPart.SetFocus(); }
  void Accept() override;
  void Refuse(const std::string& why);
};

// Asks for the new number and changes it, if the person wants to. The list is told by the inventory.
void ChangeNumberOf(Shop& shop, Inventory::PartIndex index);

}  // namespace lantos
