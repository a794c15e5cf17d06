#include "contents/parts/frmWOPart.h"

#include <array>

#include "contents/AmountFields.h"
#include "records/inventory/Inventory.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 6600;
constexpr ui::Twips kHeight = 4200;
constexpr std::string_view kForEstimate = "Estimate";
constexpr double kWholeMarkup = 1000000;

// The work order's price level by its name; the same in capitals is brought into that form, any other is Retail.
std::size_t LevelOf(std::string& pricing) {
  for (std::size_t level = 0; level < kPriceLevelNames.size(); ++level) {
    if (pricing != kPriceLevelNames[level] && pricing != ToUpper(kPriceLevelNames[level])) continue;
    pricing = kPriceLevelNames[level];
    return level;
  }
  pricing = kPriceLevelNames[kRetail];
  return kRetail;
}

}  // namespace

frmWOPart::frmWOPart(Workbench& bench, const std::string& caption, Task task, Kind kind)
    : OkCancelForm(bench.shop.desktop, bench.shop.keys, "frmWOPart", caption),
      bench_(bench),
      shop_(bench.shop),
      inventory_(bench.shop.records.inventory),
      task_(task),
      kind_(kind) {
  SetSize(kWidth, kHeight);
  PartNumber.SetMaxLength(20);
  Description.SetMaxLength(38);
  WireFields();
  UseButtons(cmdSave, cmdCancel);
  cmdReset.OnClick = [this] { Reset(); };
  cmdReset.SetCausesValidation(false);
  cmdSave.SetToolTip("Add to workorder <F10>");
  cmdReset.SetToolTip("Reset <F2>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  AskBeforeLosing(cmdCancel, PartNumber, Description, QuantityUsed, CostPrice, SalePrice, ListPrice, DisposalFee);
}

void frmWOPart::WireFields() {
  PartNumber.OnLostFocus = [this] { PartNumberLeft(); };
  QuantityUsed.OnLostFocus = [this] { AtLeastOne(QuantityUsed); };
  CostPrice.OnLostFocus = [this] { CostLeft(); };
  numbers_.Add(QuantityUsed, "Quantity Used");
  numbers_.Add(CostPrice, "Cost");
  numbers_.Add(SalePrice, "Sale Price");
  numbers_.Add(ListPrice, "List Price");
  numbers_.Add(DisposalFee, "Disposal Fee");
  for (ui::TextBox* box : {&CostPrice, &SalePrice, &ListPrice, &DisposalFee}) {
    numbers_.FormatOnLeaving(*box);
    numbers_.TakeOnSaving(*box);
  }
}

bool frmWOPart::IsForEstimate() const { return Right(Caption(), kForEstimate.size()) == kForEstimate; }

void frmWOPart::EnterMoves() {
  if (IsForEstimate()) {
    EnterMovesThrough({&PartNumber, &Description, &QuantityUsed, &CostPrice, &SalePrice, &ListPrice, &cmdSave});
  } else {
    EnterMovesThrough(
        {&PartNumber, &Description, &QuantityUsed, &CostPrice, &SalePrice, &ListPrice, &DisposalFee, &cmdSave});
  }
}

void frmWOPart::OnLoad() {
  EnterMoves();
  if (task_ == Task::Change) {
    ShowLine();
  } else if (IsStocked()) {
    ShowInventory();
  }
  PartNumber.SetLocked(task_ == Task::Change || IsStocked());
  PartNumber.SetTabStop(!PartNumber.Locked());
  CostLabel.SetVisible(!IsStocked());
  CostPrice.SetVisible(!IsStocked());
  lblInStock.SetVisible(IsStocked());
  lblInStock.SetCaption(std::to_string(inventory_.CurrentInv.Get(inventory::QtyInStock)) + " in stock");
  KeepForReset();
}

void frmWOPart::OnActivate() { (PartNumber.Locked() ? QuantityUsed : PartNumber).SetFocus(); }

void frmWOPart::ShowInventory() {
  const InventoryRecord& part = inventory_.CurrentInv;
  const auto price = [&part](int level) {
    return FormatHundredths(part.Get(inventory::Pricing[static_cast<std::size_t>(level)]));
  };
  currentPart_ = part.Get(inventory::StockNumber);
  PartNumber.SetText(currentPart_);
  Description.SetText(part.Get(inventory::Description));
  QuantityUsed.SetText("1");
  CostPrice.SetText(price(0));
  SalePrice.SetText(price(inventory_.pricingLevel));
  ListPrice.SetText(price(kRetail));
  DisposalFee.SetText(FormatHundredths(part.Get(inventory::DisposalFee)));
}

void frmWOPart::ShowLine() {
  const InventoryRecord& part = inventory_.CurrentInv;
  currentPart_ = line_.partNumber;
  PartNumber.SetText(line_.partNumber);
  Description.SetText(line_.description);
  QuantityUsed.SetText(std::to_string(line_.quantity));
  CostPrice.SetText(FormatHundredths(line_.cost));
  SalePrice.SetText(FormatHundredths(line_.price));
  ListPrice.SetText(FormatHundredths(IsStocked() ? part.Get(inventory::Pricing[kRetail]) : line_.list));
  if (IsStocked()) DisposalFee.SetText(FormatHundredths(part.Get(inventory::DisposalFee)));
}

void frmWOPart::KeepForReset() {
  atLoad_.clear();
  for (ui::TextBox* box :
       {&PartNumber, &Description, &QuantityUsed, &CostPrice, &SalePrice, &ListPrice, &DisposalFee}) {
    atLoad_.emplace_back(box, box->Text());
  }
  MarkUnchanged();
}

void frmWOPart::Reset() {
  OnActivate();  // first, since a field that is left is formatted
  for (const auto& [box, text] : atLoad_) box->SetText(text);
  MarkUnchanged();
}

void frmWOPart::OnKeyDown(ui::KeyPress& key) {
  OkCancelForm::OnKeyDown(key);
  if (!key.Is("F2")) return;
  key.Clear();
  Reset();
}

// A number that the inventory knows brings its part.
void frmWOPart::PartNumberLeft() {
  const std::string number = Trim(PartNumber.Text());
  if (PartNumber.Locked() || number == currentPart_) return;
  inventory_.FinishLoading();
  const Inventory::PartIndex index = inventory_.FindPart(number);
  if (index == Inventory::kNoPart) return;
  FileLink offset = kNoLink;
  if (inventory_.ReadInventory(offset, index)) ShowInventory();
}

// Proposes the prices that aren't there yet.
void frmWOPart::CostLeft() {
  if (!numbers_.IsNumber(CostPrice)) return;
  const std::int32_t markup = bench_.System().Get(sysrec::markups[LevelOf(bench_.workorder.Pricing)]);
  const double cost = Val(CostPrice.Text());
  const std::string proposal = FormatFixed(cost + cost * markup / kWholeMarkup, 2);
  for (ui::TextBox* box : {&ListPrice, &SalePrice}) {
    if (TrimView(box->Text()).empty()) box->SetText(proposal);
  }
}

bool frmWOPart::HasAll() {
  return HasRequired(*this, {{&PartNumber, "Part number is required."},
                             {&Description, "Description is required."},
                             {&QuantityUsed, "Quantity Used is required."},
                             {&CostPrice, "Cost is required."},
                             {&SalePrice, "Sale Price is required."},
                             {&ListPrice, "List Price is required."}});
}

// Asks when the stock doesn't hold that many. An estimate takes none, and is never asked.
bool frmWOPart::StockSuffices() {
  if (IsForEstimate() || !IsStocked()) return true;
  const std::int32_t onHand = inventory_.CurrentInv.Get(inventory::QtyInStock);
  const double more = Val(QuantityUsed.Text()) - (task_ == Task::Add ? 0 : line_.quantity);
  if (more <= onHand) return true;
  const std::string quantity = std::to_string(RoundHalfEven(more));
  const std::string stock = std::to_string(onHand);
  const std::string text = task_ == Task::Add
                               ? "Quantity used (" + quantity + ") is more than quantity in stock (" + stock + ")."
                               : "Additional quantity (" + quantity + ") exceeds quantity in stock (" + stock + ").";
  return shop_.desktop.Ask(text + "\r\n\r\nAre you sure you wish to continue?", Caption(), ui::Buttons::YesNo) ==
         ui::Answer::Yes;
}

void frmWOPart::Accept() {
  if (!HasAll() || !numbers_.AreNumbers()) return;
  AtLeastOne(QuantityUsed);  // <F10> doesn't leave the field
  if (!StockSuffices()) return;
  SaveAndHide();
}

PartLine frmWOPart::Line() const {
  PartLine line;
  line.partNumber = Trim(PartNumber.Text());
  line.description = Trim(Description.Text());
  line.quantity = WholeOrOverflow(Val(QuantityUsed.Text()));
  line.price = CentsIn(SalePrice);
  line.cost = CentsIn(CostPrice);
  line.list = CentsIn(ListPrice);
  return line;
}

}  // namespace lantos
