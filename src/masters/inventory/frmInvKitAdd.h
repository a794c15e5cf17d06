#pragma once

#include <string>

#include "records/inventory/InventoryKits.h"
#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

inline constexpr const char* kChoosePartForKit = "Choose Part for Kit";

// A component of a kit: its part, typed or chosen from the inventory list, and how many of it.
class frmInvKitAdd : public OkCancelForm {
 public:
  frmInvKitAdd(Shop& shop, const std::string& caption, const KitLineTexts& component);

  ui::Label lblPart{*this, "lblPart", "&Part"};
  ui::TextBox txtPart{*this, "txtPart"};
  ui::Button cmdFind{*this, "cmdFind", "&List..."};
  ui::Label lblDesc{*this, "lblDesc", "&Description"};
  ui::TextBox txtDesc{*this, "txtDesc"};
  ui::Label lblQuantity{*this, "lblQuantity", "&Quantity"};
  ui::TextBox txtQuantity{*this, "txtQuantity"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

  // As it was saved; the quantity is a whole number without anything about it.
  KitLineTexts Component() const { return component_; }

 private:
  void OnLoad() override;
  void OnActivate() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  void ChooseFromList();
  bool HasPart();      // one that is on file, or the one that was there
  bool HasQuantity();  // a whole one

  Shop& shop_;
  KitLineTexts component_;
  NumberFields numbers_{*this};
};

}  // namespace lantos
