#pragma once

#include "records/inventory/Inventory.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// Deletes a part, once the person is sure. What they come to by Enter alone is the way back.
class frmInvPartDelete : public OkCancelForm {
 public:
  frmInvPartDelete(Shop& shop, Inventory::PartIndex index);

  ui::Label lblPart{*this, "lblPart"};
  ui::Label lblDesc{*this, "lblDesc"};
  ui::ControlArray<ui::Label, 2> lblWarning{*this, "lblWarning"};
  ui::Label lblQuestion{*this, "lblQuestion", "Are you really sure you wish to do this?"};
  ui::Button cmdYes{*this, "cmdYes", "&Yes, delete the part."};
  ui::Button cmdNo{*this, "cmdNo", "&No, I changed my mind."};

 private:
  void OnActivate() override { cmdNo.SetFocus(); }
  void Accept() override;

  Shop& shop_;
  Inventory::PartIndex index_;
};

// Asks, and deletes the part if the person wants to. The list is told by the inventory.
void DeleteAsked(Shop& shop, Inventory::PartIndex index);

}  // namespace lantos
