#include "masters/inventory/frmInvList.h"

#include <fmt/format.h>

#include <utility>

#include "frame/Text.h"
#include "masters/inventory/DeletedParts.h"
#include "masters/inventory/frmInvPartChange.h"
#include "masters/inventory/frmInvPartDelete.h"
#include "masters/inventory/frmInvView.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 7380;
constexpr ui::Twips kHeight = 3930;
constexpr int kReadInterval = 1;  // milliseconds
constexpr std::string_view kAutoSearchKey = "frmInvListAutoSearch";
constexpr const char* kCaption = "Inventory List";

std::string Elapsed(std::int64_t milliseconds) {
  const std::int64_t seconds = milliseconds / 1000;
  return fmt::format("{}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

PartAt PartOfRow(const Inventory& inventory, const PartTable& table, int row) {
  const Inventory::PartIndex part = table.At(static_cast<std::size_t>(row));
  return {inventory.Tag(part).Get(inventorytag::Tag), part};
}

void Press(ui::Button& button) {
  if (button.IsUsable() && button.OnClick) button.OnClick();
}

}  // namespace

frmInvList::frmInvList(Shop& shop)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmInvList", kCaption),
      shop_(shop),
      inventory_(shop.records.inventory),
      table_(inventory_),
      blocks_(shop),
      updates_(shop, AuditTimer, UpdTimer, ReceivedParts()) {
  SetResident(true);
  SetDesignedSize(kWidth, kHeight);
  DataGrid1.SetSpokenName("Parts");
  frameStocked.Holds(optBoth, optStk, optNonStk);
  optBoth.SetValue(true);
  SearchPart.SetMaxLength(20);
  SearchDesc.SetMaxLength(38);
  UseButtons(cmdSelect, cmdClose);
  SetDefaultButton(cmdSearch);
  WireSearch();
  WireRequests();
  Subscribe();
  ReadTimer.SetEnabled(false);
  ReadTimer.SetInterval(kReadInterval);
  ReadTimer.OnTimer = [this] { ReadNextBlock(); };
  cmdSearch.SetToolTip("Search <Enter>");
  cmdSelect.SetToolTip("Select <F10>");
  cmdView.SetToolTip("View <F4>");
  cmdAdd.SetToolTip("Add <Insert>");
  cmdChange.SetToolTip("Change Part Number *NOT RECOMMENDED*");
  cmdDelete.SetToolTip("Delete Part Number *NOT RECOMMENDED*");
  cmdClose.SetToolTip("Close <Esc>");
  cbAutoSearch.SetToolTip("Search with each key");
}

frmInvList::~frmInvList() {
  inventory_.onNewPart = nullptr;
  inventory_.onPartChanged = nullptr;
  inventory_.onCountChanged = nullptr;
  inventory_.onFinishLoading = nullptr;
}

void frmInvList::Subscribe() {
  inventory_.onNewPart = [this](FileLink, Inventory::PartIndex index) { UpdateListRow(index, ListedPart::New); };
  inventory_.onPartChanged = [this](FileLink, Inventory::PartIndex index) { UpdateListRow(index, ListedPart::Known); };
  // The core that comes with a part is told of by the count alone.
  inventory_.onCountChanged = [this] {
    const Inventory::PartIndex last = inventory_.Count() - 1;
    if (inventory_.Tag(last).View(inventorytag::StockNumber).ends_with("/C")) UpdateListRow(last, ListedPart::New);
  };
  inventory_.onFinishLoading = [this] { FinishLoading(); };
}

void frmInvList::WireSearch() {
  cmdSearch.OnClick = [this] {
    FilterParts();
    GoToHits();
  };
  SearchPart.OnChange = [this] { SearchTyped(); };
  SearchDesc.OnChange = [this] { SearchTyped(); };
  cbAutoSearch.OnClick = [this] {
    shop_.environment.settings.Save(kAutoSearchKey, cbAutoSearch.Value() ? "True" : "False");
    SearchTyped();
  };
  for (ui::OptionButton* option : {&optBoth, &optStk, &optNonStk}) {
    option->OnClick = [this] {
      if (IsLoaded()) FilterParts();
    };
  }
  DataGrid1.OnRowChange = [this] {
    const int row = DataGrid1.Row();
    currentPart_ = row < 0 ? Inventory::kNoPart : table_.At(static_cast<std::size_t>(row));
  };
  DataGrid1.OnDoubleClick = [this] { Accept(); };
  DataGrid1.OnHeadClick = [this](int column) { SortBy(DataGrid1.Columns()[static_cast<std::size_t>(column)].name); };
}

// A change of number and a deletion are asked about on forms of their own; the list stays behind them.
void frmInvList::WireRequests() {
  cmdView.OnClick = [this] { Leave(Request::View); };
  cmdAdd.OnClick = [this] { Leave(Request::Add); };
  cmdChange.OnClick = [this] {
    if (!HasCurrentPart()) return;
    ChangeNumberOf(shop_, currentPart_);
    DataGrid1.SetFocus();
  };
  cmdDelete.OnClick = [this] {
    if (!HasCurrentPart()) return;
    DeleteAsked(shop_, currentPart_);  // its row goes when the part is written
    DataGrid1.SetFocus();
  };
}

StockedColumn frmInvList::Stocked() const {
  return shop_.environment.shopOptions.InventoryTagVersion > 0 ? StockedColumn::Shown : StockedColumn::Absent;
}

void frmInvList::OnLoad() {
  SizedForm::OnLoad();
  DataGrid1.SetColumns(PartColumns(Stocked()));
  frameStocked.SetVisible(Stocked() == StockedColumn::Shown);
  cbAutoSearch.SetValue(shop_.environment.settings.GetBoolean(kAutoSearchKey, false));
  StartLoading();
  updates_.Start();
}

void frmInvList::OnActivate() {
  if (comes_ == Comes::Back && currentPart_ != Inventory::kNoPart) {
    DataGrid1.SetFocus();
  } else if (SearchPart.IsUsable()) {
    SearchPart.SetFocus();
  }
}

// A block a tick, so that the board can be used meanwhile.
void frmInvList::StartLoading() {
  table_.Clear();
  blocks_.Begin();
  loadStarted_ = shop_.environment.clock.Now();
  LoadProgress.SetRange(blocks_.Count());
  LoadProgress.SetValue(0);
  ShowTotal();
  EnableSearch(false);
  ReadTimer.SetEnabled(true);
}

void frmInvList::ReadNextBlock() {
  ReadTimer.SetEnabled(false);
  DeletedParts deleted(shop_);
  for (const InventoryTag& tag : blocks_.Next()) {
    const bool isKept = tag.Get(inventorytag::Tag) > 0 || !tag.View(inventorytag::StockNumber).empty() ||
                        !tag.View(inventorytag::Description).empty();
    if (!isKept) continue;
    const Inventory::PartIndex index = inventory_.AppendTag(tag);
    if (!deleted.Has(tag)) table_.Add(index);
  }
  LoadProgress.SetValue(blocks_.Done());
  ShowTotal();
  ShowRows();
  if (IsLoading()) {
    ReadTimer.SetEnabled(true);
  } else {
    EndLoading();
  }
}

void frmInvList::FinishLoading() {
  while (IsLoading()) ReadNextBlock();
}

void frmInvList::EndLoading() {
  lblElapsedTime.SetCaption(Elapsed(shop_.environment.clock.Now().MillisecondsSince(loadStarted_)));
  shop_.desktop.Beep();
  LoadProgress.SetVisible(false);
  LoadingLabel.SetVisible(false);
  EnableSearch(true);
  if (Visible() && (!DataGrid1.HasFocus() || DataGrid1.Row() < 0)) SearchPart.SetFocus();
}

void frmInvList::EnableSearch(bool enabled) {
  for (ui::Control* control : {static_cast<ui::Control*>(&SearchPart), static_cast<ui::Control*>(&SearchDesc),
                               static_cast<ui::Control*>(&cbAutoSearch), static_cast<ui::Control*>(&cmdSearch),
                               static_cast<ui::Control*>(&frameStocked)}) {
    control->SetEnabled(enabled);
  }
}

void frmInvList::ShowTotal(std::size_t places) {
  TotalParts.SetCaption(RightJustify(std::to_string(table_.TotalCount()), places) + " Total Parts");
}

void frmInvList::ShowMatches() {
  if (lblMatchParts.Caption().empty()) return;
  lblMatchParts.SetCaption(std::to_string(table_.MatchCount()) + " Matches    ");
}

void frmInvList::SearchTyped() {
  if (cbAutoSearch.Value() && IsLoaded()) FilterParts();
}

void frmInvList::FilterParts() {
  lblMatchParts.SetCaption("Searching...");
  PartFilter filter;
  if (!TrimView(SearchPart.Text()).empty()) filter.part = SearchPart.Text();
  if (!TrimView(SearchDesc.Text()).empty()) filter.description = SearchDesc.Text();
  if (Stocked() == StockedColumn::Shown && !optBoth.Value()) filter.stocked = optStk.Value();
  table_.SetFilter(filter);
  ShowRows();
  ShowMatches();
  if (DataGrid1.RowCount() > 0 && DataGrid1.Row() < 0) DataGrid1.SetRow(0);
}

void frmInvList::GoToHits() {
  if (DataGrid1.RowCount() == 0 || !Visible()) return;
  if (DataGrid1.Row() < 0) DataGrid1.SetRow(0);
  DataGrid1.SetFocus();
}

void frmInvList::SortBy(const std::string& column) {
  const auto toggle = [this](PartSort up, PartSort down) { table_.SetSort(table_.Sort() == up ? down : up); };
  if (column == "Part") {
    toggle(PartSort::ByPart, PartSort::ByPartDown);
  } else if (column == "Description") {
    toggle(PartSort::ByDescription, PartSort::ByDescriptionDown);
  } else {
    return;
  }
  const bool down = table_.Sort() == PartSort::ByPartDown || table_.Sort() == PartSort::ByDescriptionDown;
  DataGrid1.SetSortedBy(column + (down ? " Desc" : ""));
  ShowRows();
}

// The part that was current stays so.
void frmInvList::ShowRows() {
  DataGrid1.SetRows(static_cast<int>(table_.MatchCount()), [this](int row) {
    // The grid may be looked at between a change of the table and its being shown.
    if (static_cast<std::size_t>(row) >= table_.MatchCount()) return ui::GridRow{};
    return PartCells(inventory_, table_.At(static_cast<std::size_t>(row)), Stocked());
  });
  GoToPart(currentPart_);
}

void frmInvList::GoToPart(Inventory::PartIndex index) {
  const int row = index == Inventory::kNoPart ? -1 : table_.RowOf(index);
  currentPart_ = row < 0 ? Inventory::kNoPart : index;
  if (row >= 0 && row < DataGrid1.RowCount()) DataGrid1.SetRow(row);
}

void frmInvList::UpdateListRow(Inventory::PartIndex index, ListedPart part) {
  if (part == ListedPart::Known) {
    if (DeletedParts(shop_).Has(inventory_.Tag(index))) return RemoveListRow(index);
    table_.Refresh(index);
    // A hidden list is filled anew when it is shown.
    if (!Visible() && table_.MatchCount() == static_cast<std::size_t>(DataGrid1.RowCount())) return;
  } else if (!DeletedParts(shop_).Has(inventory_.Tag(index))) {
    table_.Insert(index);
    ShowTotal();
  }
  ShowRows();
  ShowMatches();
}

void frmInvList::RemoveListRow(Inventory::PartIndex index) {
  const int row = table_.RowOf(index);
  const bool wasCurrent = index == currentPart_;
  table_.Remove(index);
  ShowTotal();
  ShowRows();
  ShowMatches();
  if (wasCurrent && DataGrid1.RowCount() > 0) DataGrid1.SetRow(std::min(row, DataGrid1.RowCount() - 1));
}

std::optional<PartAt> frmInvList::Before(Inventory::PartIndex part) const {
  const int row = table_.RowOf(part);
  if (row <= 0) return std::nullopt;
  return PartOfRow(inventory_, table_, row - 1);
}

std::optional<PartAt> frmInvList::After(Inventory::PartIndex part) const {
  const int row = table_.RowOf(part);
  if (row < 0 || row + 1 >= static_cast<int>(table_.MatchCount())) return std::nullopt;
  return PartOfRow(inventory_, table_, row + 1);
}

frmInvList::Request frmInvList::ShowFor(Purpose purpose) {
  for (ui::Button* button : {&cmdAdd, &cmdChange, &cmdDelete}) button->SetEnabled(purpose == Purpose::Keep);
  request_ = Request::None;
  ShowRows();  // the price level may be another customer's
  ShowModal();
  return request_;
}

InventoryUpdates::List frmInvList::ReceivedParts() {
  return {.isLoading = [this] { return IsLoading(); },
          .onChanged =
              [this](Inventory::PartIndex index, const InventoryTag& before) {
                rowsMoved_ |= table_.Replace(index, before);
                if (!DeletedParts(shop_).Has(inventory_.Tag(index))) return;
                table_.Remove(index);
                rowsMoved_ = true;
              },
          .onNew =
              [this](Inventory::PartIndex index) {
                if (DeletedParts(shop_).Has(inventory_.Tag(index))) return;
                table_.Add(index);
                rowsMoved_ = true;
              },
          .show = [this] { ShowReceived(); }};
}

// Rows that stay where they are have their cells looked at anew, and nothing else.
void frmInvList::ShowReceived() {
  if (std::exchange(rowsMoved_, false)) {
    ShowTotal();
    ShowRows();
    ShowMatches();
  } else {
    DataGrid1.SetSortedBy(DataGrid1.SortedBy());
  }
}

std::optional<PartAt> frmInvList::Pick(const std::string& caption) {
  SetCaption(caption);
  comes_ = Comes::Fresh;
  for (;;) {
    const Request request = ShowFor(Purpose::Pick);
    if (request == Request::None) return std::nullopt;
    if (request == Request::View) {
      const std::optional<PartAt> seen = ViewPart(shop_, chosen_.index);
      comes_ = Comes::Back;
      if (!seen) continue;
      chosen_ = *seen;
    }
    return chosen_;
  }
}

frmInvList::Request frmInvList::Ask(Comes comes) {
  SetCaption(kCaption);
  comes_ = comes;
  return ShowFor(Purpose::Keep);
}

void frmInvList::Accept() { Leave(Request::Select); }

void frmInvList::Leave(Request request) {
  if (request != Request::Add && !HasCurrentPart()) return;
  if (request != Request::Add) chosen_ = {inventory_.Tag(currentPart_).Get(inventorytag::Tag), currentPart_};
  request_ = request;
  Hide();
}

bool frmInvList::HasCurrentPart() {
  if (currentPart_ != Inventory::kNoPart) return true;
  shop_.desktop.Tell("No part is selected.", Caption());
  return false;
}

void frmInvList::OnKeyDown(ui::KeyPress& key) {
  if (key.Is("Down") && (SearchPart.HasFocus() || SearchDesc.HasFocus())) {
    key.Clear();
    return GoToHits();
  }
  ui::Button* button = key.Is("F4")                              ? &cmdView
                       : key.Is("Insert")                        ? &cmdAdd
                       : key.Is("Enter") && DataGrid1.HasFocus() ? &cmdSelect
                                                                 : nullptr;
  if (button == nullptr) return SizedForm::OnKeyDown(key);
  key.Clear();
  Press(*button);
}

}  // namespace lantos
