#pragma once

#include "contents/Workbench.h"
#include "contents/parts/PartRows.h"
#include "records/inventory/Inventory.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// One part: number, text, quantity and prices. The caller says by the caption what it is for, by the two flags whether
// the part comes from stock or is a line of the estimate, and whether it is one that the shop doesn't stock.
class frmWOPart : public OkCancelForm {
 public:
  struct Mode {
    bool add = true;        // from the inventory record, or empty; else from the line
    bool nonStock = false;  // number and cost are the person's
  };
  frmWOPart(Workbench& bench, const std::string& caption, Mode mode);

  ui::Label lblPartNumber{*this, "lblPartNumber", "&Part Number"};
  ui::TextBox PartNumber{*this, "PartNumber"};
  ui::Label lblDescription{*this, "lblDescription", "&Description"};
  ui::TextBox Description{*this, "Description"};
  ui::Label lblQuantityUsed{*this, "lblQuantityUsed", "&Quantity Used"};
  ui::TextBox QuantityUsed{*this, "QuantityUsed"};
  ui::Label lblInStock{*this, "lblInStock"};
  ui::Label CostLabel{*this, "CostLabel", "Cos&t"};
  ui::TextBox CostPrice{*this, "CostPrice"};
  ui::Label lblSalePrice{*this, "lblSalePrice", "Sale Pri&ce"};
  ui::TextBox SalePrice{*this, "SalePrice"};
  ui::Label lblListPrice{*this, "lblListPrice", "&List Price"};
  ui::TextBox ListPrice{*this, "ListPrice"};
  ui::Label lblDisposalFee{*this, "lblDisposalFee", "Disposal &Fee"};
  ui::TextBox DisposalFee{*this, "DisposalFee"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdReset{*this, "cmdReset", "&Reset"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};

  // The line to be changed, before the screen is loaded.
  void SetLine(const PartLine& line) { line_ = line; }
  bool Saved() const { return saved_; }
  // What was typed.
  PartLine Line() const;

 private:
  void OnLoad() override;
  void OnActivate() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  void WireFields();
  void EnterMoves();
  void ShowInventory();
  void ShowLine();
  void KeepForReset();
  void Reset();
  void PartNumberLeft();
  void CostLeft();
  bool HasAll();
  bool StockSuffices();
  bool IsForEstimate() const;

  Workbench& bench_;
  Shop& shop_;
  Inventory& inventory_;
  Mode mode_;
  PartLine line_;
  std::string currentPart_;
  std::vector<std::pair<ui::TextBox*, std::string>> atLoad_;
  bool saved_ = false;
};

}  // namespace lantos
