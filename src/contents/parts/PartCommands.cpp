#include <optional>

#include "contents/AmountFields.h"
#include "contents/Changing.h"
#include "contents/LineNumbers.h"
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
    if (AddStockPart(hasCore ? Comes::WithItsCore : Comes::Alone) && hasCore) AddCoreOf(number);
  }
}

bool PartLines::EditAndStore(frmWOPart& form, const Storing& store, Comes comes) {
  std::optional<Stored> stored;
  form.StoreBy({[&] { stored = store(); }, [&form] { return "The part \"" + Trim(form.PartNumber.Text()) + "\""; }});
  form.ShowModal();
  if (!stored) return false;
  const std::string number = Trim(form.PartNumber.Text());
  form.Unload();
  if (comes == Comes::WithItsCore) stored->refusal = nullptr;
  Show(std::move(*stored), number);
  return true;
}

// The part in the working records, and the fee that comes with it. The fees of a part and its core have the numbers in
// front of the surcharge's own: a surcharge that came with the part makes room for the core's.
bool PartLines::AddStockPart(Comes comes) {
  const bool makesRoom = comes == Comes::AsTheCore && surcharge_.HasMadeItsLine();
  frmWOPart form(bench_, "Add Part to Estimate", frmWOPart::Task::Add, frmWOPart::Kind::Stocked);
  const auto change = [&] {
    StorePart(form.Line());
    if (Stock().CurrentInv.Get(inventory::HasWaste) != 1) return;
    if (makesRoom) surcharge_.MakeRoomInWaste();
    AddDisposalFee();
  };
  return EditAndStore(
      form, [&] { return Store(change); }, comes);
}

void PartLines::AddCoreOf(const std::string& partNumber) {
  const auto applySurcharge = [this] {
    surcharge_.ApplySurcharge();
    bench_.estimate.RefreshTotals();
  };
  bool added = false;
  ChangeOrGoBack([&] { added = AddCorePart(partNumber); }, applySurcharge);
  if (!added) applySurcharge();
}

bool PartLines::AddCorePart(const std::string& partNumber) {
  Stock().FinishLoading();
  const Inventory::PartIndex index = Stock().FindPart(partNumber + "/C");
  FileLink offset = kNoLink;
  return index != Inventory::kNoPart && Stock().ReadInventory(offset, index) && AddStockPart(Comes::AsTheCore);
}

// Once a line, whatever its quantity, and from the inventory's record. It has no tie to the part, and stays when the
// part goes.
void PartLines::AddDisposalFee() {
  const InventoryRecord& part = Stock().CurrentInv;
  de::Extra fee;
  fee.VendorName = "Waste Disposal Fee";
  fee.Cost = fee.Price = part.Get(inventory::DisposalFee);
  fee.Desc1 = "Disposal Fee for: " + part.Get(inventory::StockNumber);
  fee.Taxable = DefaultTaxable(bench_.System().Get(sysrec::tax_rate_waste));
  de& data = bench_.Data();
  data.AddWaste(bench_.Number(), NumberForNewLine(data.WasteForEstimate(bench_.Number()), "WasteNumber"), fee);
}

void PartLines::AddNonStock() {
  UsePriceLevelOfCustomer();
  frmWOPart form(bench_, "Add Non-Stocked Part", frmWOPart::Task::Add, frmWOPart::Kind::NonStock);
  const auto change = [&] {
    PartLine line = form.Line();
    line.partNumber = ToUpper(line.partNumber);
    line.description = ToUpper(line.description);
    StorePart(line);
  };
  EditAndStore(form, [&] { return Store(change); });
}

void PartLines::Change() {
  const std::vector<int> rows = SelectedRows();
  ui::Desktop& desktop = bench_.shop.desktop;
  if (rows.empty()) return desktop.Tell("You must select a part in order to change it.", kChangeTitle);
  if (rows.size() > 1) return desktop.Tell("You must select a single part to change.", kChangeTitle);
  PartLine line = lines_.at(static_cast<std::size_t>(rows.front()));
  ListedLine listed(ValuesOf(line));
  line.description = Trim(Left(line.description, kPartDescriptionColumn));  // the row shows no more, and so it stays
  UsePriceLevelOfCustomer();
  Stock().FinishLoading();
  const Inventory::PartIndex index = Stock().FindPart(line.partNumber);
  FileLink offset = kNoLink;
  const bool inStock = index != Inventory::kNoPart && Stock().ReadInventory(offset, index);
  frmWOPart form(bench_, "Change Part for Estimate", frmWOPart::Task::Change,
                 inStock ? frmWOPart::Kind::Stocked : frmWOPart::Kind::NonStock);
  form.SetLine(line);
  EditAndStore(form, [&] { return StoreInPlace(line.partNumber, listed, form.Line()); });
}

// Removed and added anew: the quantity is replaced.
std::optional<PartLines::Stored> PartLines::StoreInPlace(const std::string& number, ListedLine& listed,
                                                         const PartLine& entry) {
  PartLine ours = entry;
  ours.total = Product(ours.quantity, ours.price);
  const auto change = [&] {
    listed.Expect(ValuesStored(number));
    bench_.Data().DeletePart(bench_.Number(), number);
    StorePart(ours);
  };
  std::optional<Stored> stored;
  const auto transaction = [&] { stored = Store(change); };
  const bool isStored =
      listed.Store(bench_.shop.desktop, kChangeTitle, ValuesOf(ours), {transaction, [this] { FollowDatabase(); }});
  return isStored ? std::move(stored) : std::nullopt;
}

void PartLines::Remove() {
  const std::vector<int> rows = SelectedRows();
  ui::Desktop& desktop = bench_.shop.desktop;
  if (rows.empty()) return desktop.Tell("You must select a part in order to remove it.", kRemoveTitle);
  std::string question = "Are you sure wish to remove";
  for (const int row : rows) question += "\r    " + bench_.estimate.PartList().List(row);
  question += "\rfrom this estimate?";
  if (desktop.Ask(question, kRemoveTitle, ui::Buttons::YesNo) != ui::Answer::Yes) return;
  RemovePartLines(rows);
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
  std::optional<Stored> stored;
  form.StoreBy({[&] { stored = Store([&] { StoreKit(form); }); },
                [&form] { return "The kit \"" + Trim(form.PartNumber.Text()) + "\""; }});
  form.ShowModal();
  form.Unload();
  if (stored) Show(std::move(*stored), form.Rows().empty() ? form.Line().partNumber : std::string());
}

void PartLines::StoreKit(const frmWOKit& form) {
  const PartLine kit = form.Line();
  StorePart(kit);
  for (const KitRow& row : form.Rows()) StorePart(KitComponentLine(row, kit));
}

}  // namespace lantos
