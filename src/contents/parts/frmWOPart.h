#pragma once

#include "contents/Workbench.h"
#include "contents/parts/PartRows.h"
#include "records/inventory/Inventory.h"
#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// One part: number, text, quantity and prices. Whether it is for an estimate or for a work order is told by the
// caption.
class frmWOPart : public OkCancelForm {
 public:
  enum class Task { Add, Change };        // from the inventory's record, or empty; from the line
  enum class Kind { Stocked, NonStock };  // the number and cost of a non-stocked part are the person's
  frmWOPart(Workbench& bench, const std::string& caption, Task task, Kind kind);

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
  bool IsStocked() const { return kind_ == Kind::Stocked; }
  bool HasAll();
  bool StockSuffices();
  bool IsForEstimate() const;

  Workbench& bench_;
  Shop& shop_;
  Inventory& inventory_;
  Task task_;
  Kind kind_;
  PartLine line_;
  std::string currentPart_;
  std::vector<std::pair<ui::TextBox*, std::string>> atLoad_;
  NumberFields numbers_{*this};
};

}  // namespace lantos
