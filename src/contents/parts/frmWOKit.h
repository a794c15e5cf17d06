#pragma once

#include <vector>

#include "contents/Workbench.h"
#include "contents/parts/PartRows.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/InventoryKits.h"
#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// One component of a kit as the screen shows it.
struct KitRow {
  std::string partNumber;
  std::int32_t quantity = 0;
  std::string description;
};

// A kit and what is in it: the kit in the working inventory records.
class frmWOKit : public SizedForm {
 public:
  frmWOKit(Workbench& bench, const std::string& caption);

  ui::Label lblPartNumber{*this, "lblPartNumber", "&Part Number"};
  ui::TextBox PartNumber{*this, "PartNumber"};
  ui::Label lblDescription{*this, "lblDescription", "&Description"};
  ui::TextBox Description{*this, "Description"};
  ui::Label lblQuantityUsed{*this, "lblQuantityUsed", "&Quantity Used"};
  ui::TextBox QuantityUsed{*this, "QuantityUsed"};
  ui::Label CostLabel{*this, "CostLabel", "Cos&t"};
  ui::TextBox CostPrice{*this, "CostPrice"};
  ui::Label lblSalePrice{*this, "lblSalePrice", "Sale Pri&ce"};
  ui::TextBox SalePrice{*this, "SalePrice"};
  ui::Label lblListPrice{*this, "lblListPrice", "&List Price"};
  ui::TextBox ListPrice{*this, "ListPrice"};
  ui::Label lblDisposalFee{*this, "lblDisposalFee", "Disposal &Fee"};
  ui::TextBox DisposalFee{*this, "DisposalFee"};
  ui::Label lblHeading{*this, "lblHeading", "  Qty   Part Number          Description"};
  ui::ListBox List1{*this, "List1"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdReset{*this, "cmdReset", "&Reset"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};

  // False when what is in the kit couldn't be read, which has been told: the screen isn't shown then.
  bool HasContents() const { return hasContents_; }
  // The kit's own line, as it was typed.
  PartLine Line() const;
  const std::vector<KitRow>& Rows() const { return rows_; }

 private:
  void OnLoad() override;
  void OnActivate() override { QuantityUsed.SetFocus(); }
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  void ShowKit();
  bool FillList();
  bool StockSuffices();

  Shop& shop_;
  Inventory& inventory_;
  std::vector<KitRow> rows_;
  NumberFields numbers_{*this};
  bool hasContents_ = false;
};

}  // namespace lantos
