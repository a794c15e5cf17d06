#include "contents/parts/frmWOKit.h"

#include "contents/AmountFields.h"
#include "masters/inventory/KitRows.h"
#include "records/OpenedFile.h"
#include "records/inventory/Inventory.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 8400;
constexpr ui::Twips kHeight = 6300;
constexpr std::string_view kForEstimate = "Estimate";

}  // namespace

frmWOKit::frmWOKit(Workbench& bench, const std::string& caption)
    : SizedForm(bench.shop.desktop, bench.shop.keys, bench.shop.environment.settings, "frmWOKit", caption),
      shop_(bench.shop),
      inventory_(bench.shop.records.inventory) {
  SetDesignedSize(kWidth, kHeight);
  List1.SetFace(ui::FontFace::FixedPitch);
  lblHeading.SetFace(ui::FontFace::FixedPitch);
  for (ui::TextBox* box : {&PartNumber, &Description}) {
    box->SetLocked(true);
    box->SetTabStop(false);
  }
  CostLabel.SetVisible(false);
  CostPrice.SetVisible(false);
  QuantityUsed.OnLostFocus = [this] { AtLeastOne(QuantityUsed); };
  numbers_.Add(QuantityUsed, "Quantity Used");
  numbers_.Add(SalePrice, "Sale Price");
  numbers_.Add(ListPrice, "List Price");
  numbers_.Add(DisposalFee, "Disposal Fee");
  for (ui::TextBox* box : {&SalePrice, &ListPrice, &DisposalFee}) {
    numbers_.FormatOnLeaving(*box);
    numbers_.TakeOnSaving(*box);
  }
  EnterMovesThrough({&QuantityUsed, &SalePrice, &ListPrice, &DisposalFee, &cmdSave});
  UseButtons(cmdSave, cmdCancel);
  cmdReset.OnClick = [this] {
    QuantityUsed.SetFocus();  // first, since a field that is left is formatted
    ShowKit();
  };
  cmdReset.SetCausesValidation(false);
  cmdSave.SetToolTip("Add to workorder <F10>");
  cmdReset.SetToolTip("Reset <F2>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  AskBeforeLosing(cmdCancel, QuantityUsed, SalePrice, ListPrice, DisposalFee);
}

void frmWOKit::OnLoad() {
  SizedForm::OnLoad();
  ShowKit();
  hasContents_ = FillList();
}

void frmWOKit::ShowKit() {
  const InventoryRecord& kit = inventory_.CurrentInv;
  const KitPrices prices = ParseKitPrices(kit.View(inventory::Location));
  PartNumber.SetText(kit.Get(inventory::StockNumber));
  Description.SetText(kit.Get(inventory::Description));
  QuantityUsed.SetText("1");
  CostPrice.SetText(FormatHundredths(kit.Get(inventory::Pricing[0])));
  SalePrice.SetText(FormatHundredths(prices.sale));
  ListPrice.SetText(FormatHundredths(prices.list));
  DisposalFee.SetText(FormatHundredths(kit.Get(inventory::DisposalFee)));
  MarkUnchanged();
}

// A kit that the file hasn't is empty; a file that somebody holds is another matter.
bool frmWOKit::FillList() {
  OpenedFile file(shop_.environment.openFiles);
  file.TakeOver(shop_.records.kits.OpenKitFile(InventoryKits::Sharing::Shared));
  if (!file.IsOpen()) return false;
  InventoryKitRecord kit;
  shop_.records.kits.FindKit(inventory_.CurrentInv.View(inventory::StockNumber), kit, file.Handle());
  for (const KitComponent& component : ComponentsOf(kit)) {
    rows_.push_back({component.partNumber, component.quantity, inventory_.PartDescription(component.partNumber)});
    const KitRow& row = rows_.back();
    List1.AddItem(KitRowText(std::to_string(row.quantity), row.partNumber, row.description));
  }
  return true;
}

PartLine frmWOKit::Line() const {
  PartLine line;
  line.partNumber = Trim(PartNumber.Text());
  line.description = Trim(Description.Text());
  line.quantity = WholeOrOverflow(Val(QuantityUsed.Text()));
  line.price = CentsIn(SalePrice);
  line.cost = CentsIn(CostPrice);
  line.list = CentsIn(ListPrice);
  return line;
}

void frmWOKit::OnKeyDown(ui::KeyPress& key) {
  SizedForm::OnKeyDown(key);
  if (!key.Is("F2")) return;
  key.Clear();
  cmdReset.OnClick();
}

// An estimate takes nothing from stock, and is never asked.
bool frmWOKit::StockSuffices() {
  if (Right(Caption(), kForEstimate.size()) == kForEstimate) return true;
  for (const KitRow& row : rows_) {
    const std::int32_t needed = Product(row.quantity, Line().quantity);
    const std::int32_t onHand = inventory_.PartInStock(row.partNumber);
    if (needed <= onHand) continue;
    const std::string text = "Quantity " + std::to_string(needed) + " for " + row.partNumber + " exceeds stock of " +
                             std::to_string(onHand) + "\rDo you wish to continue?";
    if (shop_.desktop.Ask(text, Caption(), ui::Buttons::YesNo) != ui::Answer::Yes) return false;
  }
  return true;
}

void frmWOKit::Accept() {
  const bool complete = HasRequired(*this, {{&PartNumber, "Part number is required."},
                                            {&Description, "Description is required."},
                                            {&QuantityUsed, "Quantity Used is required."},
                                            {&CostPrice, "Cost is required."},
                                            {&SalePrice, "Sale Price is required."},
                                            {&ListPrice, "List Price is required."}});
  if (!complete || !numbers_.AreNumbers()) return;
  AtLeastOne(QuantityUsed);  // <F10> doesn't leave the field
  if (!StockSuffices()) return;
  SaveAndHide();
}

}  // namespace lantos
