#pragma once

#include "masters/inventory/OnePartForm.h"

namespace lantos {

// Deletes a part, once the person is sure. What they come to by Enter alone is the way back.
class frmInvPartDelete : public OnePartForm {
 public:
  frmInvPartDelete(Shop& shop, Inventory::PartIndex index);

  ui::ControlArray<ui::Label, 2> lblWarning{*this, "lblWarning"};
  ui::Label lblQuestion{*this, "lblQuestion", "Are you really sure you wish to do this?"};
  ui::Button cmdYes{*this, "cmdYes", "&Yes, delete the part."};
  ui::Button cmdNo{*this, "cmdNo", "&No, I changed my mind."};

 private:
  void OnActivate() override { cmdNo.SetFocus(); }
  void Accept() override;
};

// Asks, and deletes the part if the person wants to. The list is told by the inventory.
void DeleteAsked(Shop& shop, Inventory::PartIndex index);

}  // namespace lantos
