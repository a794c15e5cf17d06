#include "masters/inventory/frmInvEdit.h"

#include <algorithm>
#include <iterator>

#include "frame/Numbers.h"
#include "masters/inventory/frmInvKit.h"
#include "masters/inventory/frmRecvList.h"
#include "masters/inventory/frmUsageList.h"
#include "records/RecordMerge.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/PartUpdate.h"

namespace lantos {

namespace {

using Reads = MergedField::Reads;

// What the person can change here.
constexpr MergedField kFields[] = {
    {"Description", inventory::Description},
    {"Department", inventory::Department},
    {"Manufacturer", inventory::Manufacturer},
    {"Alternate 1", inventory::AltNumber[0]},
    {"Alternate 2", inventory::AltNumber[1]},
    {"Alternate 3", inventory::AltNumber[2]},
    {"Alternate 4", inventory::AltNumber[3]},
    {kPriceLevelNames[0], inventory::Pricing[0], Reads::Money},
    {kPriceLevelNames[1], inventory::Pricing[1], Reads::Money},
    {kPriceLevelNames[2], inventory::Pricing[2], Reads::Money},
    {kPriceLevelNames[3], inventory::Pricing[3], Reads::Money},
    {"Cost markup", inventory::MarkupPercent[0], Reads::TenThousandths},
    {"Wholesale markup", inventory::MarkupPercent[1], Reads::TenThousandths},
    {"Resale markup", inventory::MarkupPercent[2], Reads::TenThousandths},
    {"Retail markup", inventory::MarkupPercent[3], Reads::TenThousandths},
    {"Stocked", inventory::IsStocked, Reads::YesNo},
    {"Has a core", inventory::HasACore, Reads::YesNo},
    {"Core cost", inventory::CoreCost, Reads::Money},
    {"Has waste", inventory::HasWaste, Reads::YesNo},
    {"Disposal fee", inventory::DisposalFee, Reads::Money},
    {"Location", inventory::Location},
    {"Comment", inventory::Comment},
    {"Reorder level", inventory::ReorderLevel},
    {"Quantity in stock", inventory::QtyInStock},
    {"Ideal quantity", inventory::IdealLevel},
};

std::string NameOfLevel(std::size_t level) { return std::string(kPriceLevelNames[level]); }

// Of an alternate that the person entered in one place, and somebody else meanwhile in another, the other's stays: one
// part takes one of the four places. What the person entered twice stands twice.
void DropWhatOthersEnteredToo(InventoryRecord& merged, const InventoryRecord& ours, const InventoryRecord& read) {
  for (const TextField place : inventory::AltNumber) {
    const std::string entered = ours.Get(place);
    if (entered.empty() || entered == read.View(place) || entered != merged.View(place)) continue;
    const auto isTheirs = [&](TextField other) { return merged.View(other) == entered && ours.View(other) != entered; };
    if (std::any_of(std::begin(inventory::AltNumber), std::end(inventory::AltNumber), isTheirs)) merged.Put(place, "");
  }
}

}  // namespace

void EditPart(Shop& shop, PartRows& rows, PartAt part) {
  if (!shop.records.inventory.ReadInventory(part.master, part.index)) return;
  frmInvEdit edit(shop, rows, part);
  edit.ShowModal();
  edit.Unload();
}

frmInvEdit::frmInvEdit(Shop& shop, PartRows& rows, PartAt part)
    : EditForm(shop, "frmInvEdit", "Edit Part"),
      rows_(rows),
      part_(part),
      departments_(shop, ComboD, shop.records.departments, kDepartmentNames),
      manufacturers_(shop, ComboM, shop.records.manufacturers, kManufacturerNames) {
  SetSize(12000, 8400);
  ShowOnly(StockNumber);
  BindTexts();
  WireAlternates();
  BindAmounts();
  BindFlag(IsStocked, inventory::IsStocked);
  BindFlag(HasACore, inventory::HasACore);
  BindFlag(HasWaste, inventory::HasWaste);
  WireButtons();
}

void frmInvEdit::BindTexts() {
  Bind(Description, inventory::Description);
  Bind(ComboD, inventory::Department);
  Bind(ComboM, inventory::Manufacturer);
  departments_.onChange = manufacturers_.onChange = [this] { MarkChanged(); };
  Bind(Location, inventory::Location);
  Bind(Comment, inventory::Comment);
  Location.OnChange = [this] {
    MarkChanged();
    FollowLocation();
  };
}

void frmInvEdit::BindAmounts() {
  for (auto* boxes : {&Pricing, &MarkupPercent}) {
    for (ui::TextBox& box : *boxes) Watch(box);
  }
  for (ui::TextBox* box : {&CoreCost, &DisposalFee, &ReorderLevel, &QtyInStock, &IdealLevel}) Watch(*box);
  for (std::size_t level = 0; level < Pricing.size(); ++level) {
    amounts_.AddMoney(Pricing[level], inventory::Pricing[level], NameOfLevel(level));
  }
  for (std::size_t level = 0; level < MarkupPercent.size(); ++level) {
    amounts_.AddRate(MarkupPercent[level], inventory::MarkupPercent[level], NameOfLevel(level) + " markup");
  }
  amounts_.AddMoney(CoreCost, inventory::CoreCost, "Core cost");
  amounts_.AddMoney(DisposalFee, inventory::DisposalFee, "Disposal fee");
  amounts_.AddLevel(ReorderLevel, inventory::ReorderLevel, "Reorder level");
  amounts_.AddLevel(QtyInStock, inventory::QtyInStock, "Quantity in stock");
  amounts_.AddLevel(IdealLevel, inventory::IdealLevel, "Ideal quantity");
}

void frmInvEdit::BindFlag(ui::CheckBox& box, ByteField field) {
  flags_.push_back({box, field});
  box.OnClick = [this] { MarkChanged(); };
}

void frmInvEdit::WireAlternates() {
  for (std::size_t place = 0; place < AltNumber.size(); ++place) {
    const std::string digit = std::to_string(place + 1);
    ui::TextBox& box = AltNumber[place];
    ui::Button& button = cmdGoToAlt[place];
    Bind(box, inventory::AltNumber[place]);
    box.SetSpokenName("Alternate " + digit);
    box.OnChange = [this, &box, &button] {
      MarkChanged();
      button.SetEnabled(!TrimView(box.Text()).empty());
    };
    box.OnValidate = [this, place](bool& keepFocus) { keepFocus = !IsAlternate(place); };
    button.SetCaption("Go to &" + digit);
    button.SetToolTip("Go to this alternate <Alt+" + digit + ">");
    button.SetEnabled(false);
    button.OnClick = [this, place] { GoToAlternate(place); };
  }
}

void frmInvEdit::WireButtons() {
  SetEditButtons(cmdSave, cmdReset, cmdCancel);
  cmdRecalc.SetToolTip("Prices from cost and markups <Alt+L>");
  cmdEditKit.SetToolTip("Edit the parts of the kit <F4>");
  cmdUsage.SetToolTip("Usage <Alt+U>");
  cmdRecv.SetToolTip("Receiving <Alt+R>");
  cmdPrev.SetToolTip("Previous part <PgUp>");
  cmdNext.SetToolTip("Next part <PgDn>");
  cmdRecalc.OnClick = [this] { Recalculate(); };
  cmdEditKit.OnClick = [this] { EditKit(shop_, StockNumber.Text()); };
  cmdUsage.OnClick = [this] { frmUsageList(shop_, StockNumber.Text()).ShowModal(); };
  cmdRecv.OnClick = [this] { frmRecvList(shop_, StockNumber.Text()).ShowModal(); };
  cmdPrev.OnClick = [this] { GoTo(rows_.Before(part_.index)); };
  cmdNext.OnClick = [this] { GoTo(rows_.After(part_.index)); };
}

void frmInvEdit::OnLoad() {
  {
    const Quiet quiet(*this);
    departments_.Fill();
    manufacturers_.Fill();
  }
  Reset();
}

void frmInvEdit::OtherKey(ui::KeyPress& key) {
  ui::Button* button = key.Is("F4")     ? &cmdEditKit
                       : key.IsAlt("U") ? &cmdUsage
                       : key.IsAlt("R") ? &cmdRecv
                       : key.Is("PgUp") ? &cmdPrev
                       : key.Is("PgDn") ? &cmdNext
                                        : nullptr;
  // <F4> opens a drop-down where the part is no kit.
  if (button == nullptr || !button->IsUsable()) return;
  key.Clear();
  Press(*button);
}

void frmInvEdit::ShowFields() {
  shown_ = shop_.records.inventory.CurrentInv;
  const InventoryRecord& part = shown_;
  StockNumber.SetText(part.Get(inventory::StockNumber));
  ShowTexts(part);
  departments_.TakeAsKnown();
  manufacturers_.TakeAsKnown();
  for (std::size_t place = 0; place < AltNumber.size(); ++place) shownAlternates_[place] = AltNumber[place].Text();
  amounts_.Show(part);
  for (Flag& flag : flags_) {
    flag.shown = part.Get(flag.field) == 1;
    flag.box.SetValue(flag.shown);
  }
  FollowLocation();
}

void frmInvEdit::FollowLocation() { cmdEditKit.SetEnabled(IsKit(TrimView(Location.Text()))); }

void frmInvEdit::StoreFields(InventoryRecord& part) const {
  StoreTexts(part);
  amounts_.Store(part);
  for (const Flag& flag : flags_) {
    if (flag.box.Value() != flag.shown) part.Put(flag.field, flag.box.Value() ? 1 : 0);
  }
}

void frmInvEdit::Recalculate() {
  if (!numbers_.AreNumbers()) return;
  const double cost = Val(Pricing[0].Text());
  for (std::size_t level = 1; level < Pricing.size(); ++level) {
    Pricing[level].SetText(FormatFixed(cost + cost * Val(MarkupPercent[level].Text()) / 100, 2));
  }
  ReorderLevel.SetFocus();
}

void frmInvEdit::Save() {
  if (!amounts_.CanBeStored() || !AreNamesKnown() || !MayPricesBeMissing()) return;
  Inventory& inventory = shop_.records.inventory;
  const bool hadCore = inventory.CurrentInv.Get(inventory::HasACore) == 1;
  InventoryRecord ours = shown_;
  StoreFields(ours);
  RecordMerge merge(kFields, shown_, ours);
  PartUpdated updated = PartUpdated::GivenUp;
  const auto save = [&] {
    updated = UpdatePart(inventory, part_.index, [&](InventoryRecord& part) {
      merge.Into(part);
      DropWhatOthersEnteredToo(part, ours, shown_);
    });
  };
  if (!merge.Run(shop_.desktop, Caption(), save)) return;
  if (updated == PartUpdated::WasDeleted) {
    shop_.desktop.Tell("Part " + StockNumber.Text() + " was deleted by another user.", Caption(),
                       ui::Icon::Exclamation);
  }
  if (updated != PartUpdated::Yes) return;
  rows_.Refresh(part_.index);
  MarkUnchanged();
  MarkSaved(true);
  TellOfNoRoomForCore(hadCore);
  Hide();
}

bool frmInvEdit::MayPricesBeMissing() {
  ui::TextBox* missing = nullptr;
  for (std::size_t level = Pricing.size(); level-- > 0;) {
    if (amounts_.ValueIn(Pricing[level]) == 0) missing = &Pricing[level];
  }
  if (missing == nullptr) return true;
  constexpr std::size_t kCancel = 1;
  const ui::Answer answer =
      shop_.desktop.Show({"One or more of the pricing values is missing.\rClick OK to continue, or CANCEL to correct.",
                          Caption(), ui::Buttons::OkCancel, ui::Icon::None, kCancel});
  if (answer == ui::Answer::Ok) return true;
  missing->SetFocus();
  return false;
}

bool frmInvEdit::AreNamesKnown() {
  for (auto* choice : {&departments_, &manufacturers_}) {
    if (choice->Check() == NameChoice::Entry::Known) continue;
    (choice == &departments_ ? ComboD : ComboM).SetFocus();
    return false;
  }
  for (std::size_t place = 0; place < AltNumber.size(); ++place) {
    if (IsAlternate(place)) continue;
    AltNumber[place].SetFocus();
    return false;
  }
  return true;
}

// A number that stands in the record may be of a part that went since.
bool frmInvEdit::IsAlternate(std::size_t place) {
  const std::string number = Trim(AltNumber[place].Text());
  if (number.empty() || number == shownAlternates_[place]) return true;
  const Inventory& inventory = shop_.records.inventory;
  inventory.FinishLoading();
  if (inventory.FindPart(number) != Inventory::kNoPart) return true;
  TellUnknown(number);
  return false;
}

void frmInvEdit::TellUnknown(const std::string& number) {
  shop_.desktop.Tell("Part " + number + " not found.", Caption(), ui::Icon::Exclamation);
}

void frmInvEdit::TellOfNoRoomForCore(bool hadCore) {
  const InventoryRecord& part = shop_.records.inventory.CurrentInv;
  if (hadCore || part.Get(inventory::HasACore) != 1 || HasRoomForCore(part.View(inventory::StockNumber))) return;
  shop_.desktop.Tell("Part " + StockNumber.Text() +
                         " is saved, but its number is too long for a core part: there is no "
                         "room for \"/C\".",
                     Caption(), ui::Icon::Information);
}

void frmInvEdit::GoToAlternate(std::size_t place) {
  const std::string number = Trim(AltNumber[place].Text());
  const Inventory& inventory = shop_.records.inventory;
  inventory.FinishLoading();
  const Inventory::PartIndex index = inventory.FindPart(number);
  if (index == Inventory::kNoPart) return TellUnknown(number);
  GoTo(PartAt{inventory.Tag(index).Get(inventorytag::Tag), index});
}

void frmInvEdit::GoTo(const std::optional<PartAt>& part) {
  if (!MayGoOn()) return;
  if (!part) {
    shop_.desktop.Beep();
    return Reset();
  }
  PartAt next = *part;
  if (!shop_.records.inventory.ReadInventory(next.master, next.index)) return;
  part_ = next;
  Reset();
  EnterAnew(&Description);
}

}  // namespace lantos
