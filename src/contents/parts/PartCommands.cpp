#include <algorithm>

#include "contents/AmountFields.h"
#include "contents/parts/PartLines.h"
#include "contents/parts/frmWOKit.h"
#include "contents/parts/frmWOPart.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/inventory/Inventory.h"
#include "records/modSystem.h"

// The board's commands on parts.
namespace lantos {

void PartLines::UsePriceLevelOfCustomer() {
  const std::int32_t level = bench_.estimate.Customer().Get(customer::pricing_level);
  Stock().pricingLevel = level >= 0 && level < static_cast<int>(kPriceLevelNames.size()) ? level : kRetail;
}

void PartLines::Add() {
  frmInvList& list = bench_.inventoryList;
  UsePriceLevelOfCustomer();
  while (const auto picked = list.Pick("Add part to estimate")) {
    FileLink offset = picked->master;
    if (!Stock().ReadInventory(offset, picked->index)) continue;
    if (IsKit(Stock().CurrentInv.View(inventory::Location))) {
      AddKitLines();
      continue;
    }
    const std::string number = Stock().CurrentInv.Get(inventory::StockNumber);
    const bool hasCore = Stock().CurrentInv.Get(inventory::HasACore) == 1;
    Make([&] {
      if (!AddStockPart()) return Changed::Nothing;
      if (hasCore) AddCoreOf(number);
      return Changed::Lines;
    });
  }
}

// The part in the working records, through its screen. False when the person left it.
bool PartLines::AddStockPart() {
  frmWOPart form(bench_, "Add Part to Estimate", frmWOPart::Task::Add, frmWOPart::Kind::Stocked);
  form.ShowModal();
  if (!form.Saved()) return false;
  if (Stock().CurrentInv.Get(inventory::HasWaste) != 1) {
    AddPartLine(form.Line(), Choosing::ItsRow);
    return true;
  }
  // Ahead of the part: without a number for its fee neither is stored.
  const std::int32_t feeNumber = NextWasteNumber();
  AddPartLine(form.Line(), Choosing::ItsRow);
  AddDisposalFee(feeNumber);
  return true;
}

void PartLines::AddCoreOf(const std::string& partNumber) {
  Stock().FinishLoading();
  const Inventory::PartIndex index = Stock().FindPart(partNumber + "/C");
  FileLink offset = kNoLink;
  if (index != Inventory::kNoPart && Stock().ReadInventory(offset, index)) AddStockPart();
}

std::int32_t PartLines::NextWasteNumber() {
  Recordset waste = bench_.Data().WasteForEstimate(bench_.Number());
  std::int32_t highest = 0;
  for (; !waste.Eof(); waste.MoveNext()) highest = std::max(highest, waste.Long("WasteNumber"));
  return Sum(highest, 1);
}

// Once a line, whatever its quantity, and from the inventory's record. It has no tie to the part, and stays when the
// part goes.
void PartLines::AddDisposalFee(std::int32_t number) {
  const InventoryRecord& part = Stock().CurrentInv;
  de::Extra fee;
  fee.VendorName = "Waste Disposal Fee";
  fee.Cost = fee.Price = part.Get(inventory::DisposalFee);
  fee.Desc1 = "Disposal Fee for: " + part.Get(inventory::StockNumber);
  fee.Taxable = DefaultTaxable(bench_.System().Get(sysrec::tax_rate_waste));
  bench_.Data().AddWaste(bench_.Number(), number, fee);
}

void PartLines::AddNonStock() {
  UsePriceLevelOfCustomer();
  frmWOPart form(bench_, "Add Non-Stocked Part", frmWOPart::Task::Add, frmWOPart::Kind::NonStock);
  form.ShowModal();
  if (!form.Saved()) return;
  PartLine line = form.Line();
  line.partNumber = ToUpper(line.partNumber);
  line.description = ToUpper(line.description);
  Make([&] {
    AddPartLine(line, Choosing::ItsRow);
    return Changed::Lines;
  });
}

void PartLines::Change() {
  const std::vector<int> rows = SelectedRows();
  ui::Desktop& desktop = bench_.shop.desktop;
  if (rows.empty()) return desktop.Tell("You must select a part in order to change it.", "Change Part");
  if (rows.size() > 1) return desktop.Tell("You must select a single part to change.", "Change Part");
  PartLine line = lines_.at(static_cast<std::size_t>(rows.front()));
  line.description = Trim(Left(line.description, kPartDescriptionColumn));  // the row shows no more, and so it stays
  UsePriceLevelOfCustomer();
  Stock().FinishLoading();
  const Inventory::PartIndex index = Stock().FindPart(line.partNumber);
  FileLink offset = kNoLink;
  const bool inStock = index != Inventory::kNoPart && Stock().ReadInventory(offset, index);
  frmWOPart form(bench_, "Change Part for Estimate", frmWOPart::Task::Change,
                 inStock ? frmWOPart::Kind::Stocked : frmWOPart::Kind::NonStock);
  form.SetLine(line);
  form.ShowModal();
  if (!form.Saved()) return;
  // Removed and added anew: the quantity is replaced. Both or neither.
  Make([&] {
    bench_.Data().Connection().Together([&] {
      bench_.Data().DeletePart(bench_.Number(), line.partNumber);
      StorePart(form.Line());
    });
    ReloadList(line.partNumber);
    return Changed::Lines;
  });
}

void PartLines::Remove() {
  const std::vector<int> rows = SelectedRows();
  ui::Desktop& desktop = bench_.shop.desktop;
  if (rows.empty()) return desktop.Tell("You must select a part in order to remove it.", "Remove Part");
  std::string question = "Are you sure wish to remove";
  for (const int row : rows) question += "\r    " + bench_.estimate.PartList().List(row);
  question += "\rfrom this estimate?";
  if (desktop.Ask(question, "Remove Part", ui::Buttons::YesNo) != ui::Answer::Yes) return;
  Make([&] {
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) RemovePartLine(*row);
    return Changed::Lines;
  });
}

// A kit with a price stands for its parts, which show at no charge; one without shows the sum of them.
PartLine PartLines::KitComponentLine(const KitRow& row, const PartLine& kit) const {
  const Inventory::Pricing pricing = Stock().PartPricing(row.partNumber);
  PartLine line;
  line.partNumber = row.partNumber;
  line.description = row.description;
  line.quantity = Product(row.quantity, kit.quantity);
  line.cost = pricing.cost;
  if (kit.price == 0) line.price = pricing.atLevel;
  if (kit.list == 0) line.list = Stock().PartPrices(row.partNumber).byLevel[kRetail];
  return line;
}

void PartLines::AddKitLines() {
  UsePriceLevelOfCustomer();
  Stock().FinishLoading();  // its parts may be any
  frmWOKit form(bench_, "Add Kit to Estimate");
  form.LoadForm();
  if (!form.HasContents()) return;
  form.ShowModal();
  if (!form.Saved()) return;
  const PartLine kit = form.Line();
  std::vector<PartLine> components;
  for (const KitRow& row : form.Rows()) components.push_back(KitComponentLine(row, kit));
  Make([&] {
    AddPartLine(kit, Choosing::ItsRow);
    for (const PartLine& component : components) AddPartLine(component, Choosing::NoRow);
    return Changed::Lines;
  });
}

}  // namespace lantos
