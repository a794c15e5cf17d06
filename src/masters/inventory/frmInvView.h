#pragma once

#include <optional>

#include "masters/inventory/PartRows.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// One part to be looked at. The working records of the inventory stay as they are.
class frmInvView : public OkCancelForm {
 public:
  explicit frmInvView(Shop& shop);

  ui::Label lblStockNumber{*this, "lblStockNumber", "Part Number"};
  ui::Label StockNumber{*this, "StockNumber"};
  ui::Label lblDescription{*this, "lblDescription", "Description"};
  ui::Label Description{*this, "Description"};
  ui::Label lblDepartment{*this, "lblDepartment", "Department"};
  ui::Label Department{*this, "Department"};
  ui::Label lblManufacturer{*this, "lblManufacturer", "Manufacturer"};
  ui::Label Manufacturer{*this, "Manufacturer"};
  ui::Label lblLocation{*this, "lblLocation", "Location"};
  ui::Label Location{*this, "Location"};
  ui::Label lblComment{*this, "lblComment", "Comment"};
  ui::Label Comment{*this, "Comment"};
  ui::Label lblAltNumber{*this, "lblAltNumber", "Alternate parts"};
  ui::Label lblAltInStock{*this, "lblAltInStock", "In stock"};
  ui::ControlArray<ui::Label, 4> AltNumber{*this, "AltNumber"};
  ui::ControlArray<ui::Label, 4> AltInStock{*this, "AltInStock"};
  ui::ControlArray<ui::Button, 4> cmdGoToAlt{*this, "cmdGoToAlt"};
  ui::Label lblPricing{*this, "lblPricing", "Price"};
  ui::Label lblMarkupPercent{*this, "lblMarkupPercent", "Markup %"};
  ui::ControlArray<ui::Label, 4> LevelColor{*this, "LevelColor"};  // painted, without a text
  ui::ControlArray<ui::Label, 4> lblLevel{*this, "lblLevel"};
  ui::ControlArray<ui::Label, 4> Pricing{*this, "Pricing"};
  ui::ControlArray<ui::Label, 4> MarkupPercent{*this, "MarkupPercent"};
  ui::Label lblQtyInStock{*this, "lblQtyInStock", "In stock"};
  ui::Label QtyInStock{*this, "QtyInStock"};
  ui::Label lblReorderLevel{*this, "lblReorderLevel", "Reorder level"};
  ui::Label ReorderLevel{*this, "ReorderLevel"};
  ui::Label lblIdealLevel{*this, "lblIdealLevel", "Ideal level"};
  ui::Label IdealLevel{*this, "IdealLevel"};
  ui::Label lblIsStocked{*this, "lblIsStocked", "Stocked"};
  ui::Label IsStocked{*this, "IsStocked"};
  ui::Label lblHasACore{*this, "lblHasACore", "Core"};
  ui::Label HasACore{*this, "HasACore"};
  ui::Label lblCoreCost{*this, "lblCoreCost", "Core cost"};
  ui::Label CoreCost{*this, "CoreCost"};
  ui::Label lblHasWaste{*this, "lblHasWaste", "Disposal"};
  ui::Label HasWaste{*this, "HasWaste"};
  ui::Label lblDisposalFee{*this, "lblDisposalFee", "Disposal fee"};
  ui::Label DisposalFee{*this, "DisposalFee"};
  ui::Button cmdSelect{*this, "cmdSelect", "&Select"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Close"};

  // False, and the part that was shown stays, when the part could not be read and the person gave up.
  bool ShowPart(Inventory::PartIndex index);
  // The part on show when it was selected.
  std::optional<PartAt> Selected() const { return selected_; }

 private:
  void OnActivate() override { cmdSelect.SetFocus(); }
  void Accept() override;
  void ShowAlternates(const InventoryRecord& part);
  void ShowPrices(const InventoryRecord& part);
  void GoToAlternate(std::size_t which);

  Shop& shop_;
  Inventory& inventory_;
  PartAt shown_;
  std::optional<PartAt> selected_;
};

// Shows the part; the person may go on to its alternates. The part that was selected, if one was.
std::optional<PartAt> ViewPart(Shop& shop, Inventory::PartIndex index);

}  // namespace lantos
