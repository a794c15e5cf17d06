#include "masters/inventory/frmInvList.h"

#include <fmt/format.h>

#include <utility>

#include "frame/Numbers.h"
#include "frame/SharedFile.h"
#include "frame/Text.h"
#include "masters/inventory/PartOrder.h"
#include "records/Contention.h"
#include "records/RecordArray.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 7380;
constexpr ui::Twips kHeight = 3930;
constexpr int kReadInterval = 1;  // milliseconds
constexpr std::size_t kBlockTags = 128;
constexpr std::uint64_t kBlockLength = kBlockTags * InventoryTag::kLength;
static_assert(kBlockLength == 16384);
constexpr std::string_view kAutoSearchKey = "frmInvListAutoSearch";

constexpr const char* kStockedColumn = "IsStocked";

std::vector<ui::GridColumn> Columns(bool withStocked) {
  std::vector<ui::GridColumn> columns = {{"SortKey", "SortKey", false, true},
                                         {"Part", "Part"},
                                         {"Description", "Description"},
                                         {"Qty", "Qty", true},
                                         {"Retail1", "Price", true},
                                         {"Retail", "Retail", true},
                                         {"Resale", "Resale", true},
                                         {"Wholesale", "Wholesale", true},
                                         {"Cost", "Cost", true},
                                         {"Tag", "Tag", true, true},
                                         {"Index", "Index", true, true},
                                         {"Offset", "Offset", true, true}};
  if (withStocked) columns.push_back({kStockedColumn, "Stk"});
  return columns;
}

std::string Elapsed(std::int64_t milliseconds) {
  const std::int64_t seconds = milliseconds / 1000;
  return fmt::format("{}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

void Press(ui::Button& button) {
  if (button.IsUsable() && button.OnClick) button.OnClick();
}

}  // namespace

frmInvList::frmInvList(Shop& shop)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmInvList", "Inventory List"),
      shop_(shop),
      inventory_(shop.records.inventory),
      table_(inventory_),
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
  Subscribe();
  ReadTimer.SetEnabled(false);
  ReadTimer.SetInterval(kReadInterval);
  ReadTimer.OnTimer = [this] { ReadNextBlock(); };
  for (ui::Button* button : {&cmdView, &cmdAdd, &cmdChange, &cmdDelete}) button->SetEnabled(false);
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
  inventory_.onFinishLoading = nullptr;
}

void frmInvList::Subscribe() {
  inventory_.onNewPart = [this](FileLink, Inventory::PartIndex index) { UpdateListRow(index, ListedPart::New); };
  inventory_.onPartChanged = [this](FileLink, Inventory::PartIndex index) { UpdateListRow(index, ListedPart::Known); };
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

bool frmInvList::HasStockedFlag() const { return shop_.environment.shopOptions.InventoryTagVersion > 0; }

void frmInvList::OnLoad() {
  SizedForm::OnLoad();
  DataGrid1.SetColumns(Columns(HasStockedFlag()));
  frameStocked.SetVisible(HasStockedFlag());
  cbAutoSearch.SetValue(shop_.environment.settings.GetBoolean(kAutoSearchKey, false));
  StartLoading();
  updates_.Start();
}

void frmInvList::OnActivate() {
  if (SearchPart.IsUsable()) SearchPart.SetFocus();
}

// A block a tick, so that the board can be used meanwhile.
void frmInvList::StartLoading() {
  table_.Clear();
  block_.resize(kBlockTags);
  blockCount_ = shop_.environment.files.Length(kInventoryTagFile) / kBlockLength + 1;
  nextBlock_ = 0;
  tagFile_ = shop_.environment.files.PathOf(kInventoryTagFile);
  loadStarted_ = shop_.environment.clock.Now();
  LoadProgress.SetRange(static_cast<int>(blockCount_));
  LoadProgress.SetValue(0);
  ShowTotal();
  EnableSearch(false);
  ReadTimer.SetEnabled(true);
}

void frmInvList::ReadNextBlock() {
  ReadTimer.SetEnabled(false);
  Contention contention(contention::kLoadInventoryTags, shop_.desktop, shop_.environment);
  contention.Run([this] {
    // Not among the numbered files: their closing is logged, and this is done for every block.
    const SharedFile file(tagFile_, Access::Read, Deny::None);
    ReadRecords(file, nextBlock_ * kBlockLength, std::span(block_));
  });
  ++nextBlock_;
  ListTags(block_);
  LoadProgress.SetValue(static_cast<int>(nextBlock_));
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

void frmInvList::ListTags(const std::vector<InventoryTag>& block) {
  for (const InventoryTag& tag : block) {
    const bool isKept = tag.Get(inventorytag::Tag) > 0 || !tag.View(inventorytag::StockNumber).empty() ||
                        !tag.View(inventorytag::Description).empty();
    if (isKept) table_.Add(inventory_.AppendTag(tag));
  }
}

void frmInvList::EndLoading() {
  lblElapsedTime.SetCaption(Elapsed(shop_.environment.clock.Now().MillisecondsSince(loadStarted_)));
  shop_.desktop.Beep();
  LoadProgress.SetVisible(false);
  LoadingLabel.SetVisible(false);
  EnableSearch(true);
  if (Visible() && !DataGrid1.HasFocus()) SearchPart.SetFocus();
}

void frmInvList::EnableSearch(bool enabled) {
  for (ui::Control* control : {static_cast<ui::Control*>(&SearchPart), static_cast<ui::Control*>(&SearchDesc),
                               static_cast<ui::Control*>(&cbAutoSearch), static_cast<ui::Control*>(&cmdSearch),
                               static_cast<ui::Control*>(&frameStocked)}) {
    control->SetEnabled(enabled);
  }
}

void frmInvList::ShowTotal() {
  TotalParts.SetCaption(RightJustify(std::to_string(table_.TotalCount()), 7) + " Total Parts");
}

void frmInvList::SearchTyped() {
  if (cbAutoSearch.Value() && IsLoaded()) FilterParts();
}

void frmInvList::FilterParts() {
  lblMatchParts.SetCaption("Searching...");
  PartFilter filter;
  if (!TrimView(SearchPart.Text()).empty()) filter.part = SearchPart.Text();
  if (!TrimView(SearchDesc.Text()).empty()) filter.description = SearchDesc.Text();
  if (HasStockedFlag() && !optBoth.Value()) filter.stocked = optStk.Value();
  table_.SetFilter(filter);
  ShowRows();
  lblMatchParts.SetCaption(std::to_string(table_.MatchCount()) + " Matches    ");
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
  DataGrid1.SetSortedBy(column + (down ? " DESC" : ""));
  ShowRows();
}

// The part that was current stays so.
void frmInvList::ShowRows() {
  DataGrid1.SetRows(static_cast<int>(table_.MatchCount()),
                    [this](int row) { return RowOf(table_.At(static_cast<std::size_t>(row))); });
  if (currentPart_ == Inventory::kNoPart) return;
  const int row = table_.RowOf(currentPart_);
  if (row >= 0) {
    DataGrid1.SetRow(row);
  } else {
    currentPart_ = Inventory::kNoPart;
  }
}

ui::GridRow frmInvList::RowOf(Inventory::PartIndex part) const {
  const InventoryTag& tag = inventory_.Tag(part);
  const auto price = [&tag](int level) {
    return FormatHundredths(tag.Get(inventorytag::Pricing[static_cast<std::size_t>(level)]));
  };
  const std::string number = tag.Get(inventorytag::StockNumber);
  ui::GridRow row;
  row.data = part;
  row.cells = {ComputeSortKey(number),
               number,
               tag.Get(inventorytag::Description),
               std::to_string(tag.Get(inventorytag::InStock)),
               price(inventory_.pricingLevel),
               price(3),
               price(2),
               price(1),
               price(0),
               std::to_string(tag.Get(inventorytag::Tag)),
               std::to_string(part),
               std::to_string(inventory_.Location(part))};
  if (HasStockedFlag()) row.cells.emplace_back(tag.Get(inventorytag::IsStocked) == 1 ? "1" : "0");
  return row;
}

void frmInvList::UpdateListRow(Inventory::PartIndex index, ListedPart part) {
  const bool isNew = part == ListedPart::New;
  if (isNew) {
    table_.Add(index);
    ShowTotal();
  } else {
    table_.Refresh();
  }
  if (isNew || Visible()) ShowRows();  // a hidden list puts its rows in order when it is shown
}

InventoryUpdates::List frmInvList::ReceivedParts() {
  return {.isLoading = [this] { return IsLoading(); },
          .onChanged = [this](Inventory::PartIndex index,
                              const InventoryTag& before) { rowsMoved_ |= table_.Replace(index, before); },
          .onNew =
              [this](Inventory::PartIndex index) {
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
    const std::string matches = std::to_string(table_.MatchCount()) + " Matches    ";
    if (!lblMatchParts.Caption().empty()) lblMatchParts.SetCaption(matches);
  } else {
    DataGrid1.SetSortedBy(DataGrid1.SortedBy());
  }
}

std::optional<frmInvList::PickedPart> frmInvList::Pick(const std::string& caption) {
  picked_.reset();
  SetCaption(caption);
  ShowRows();  // the price level may be another customer's
  ShowModal();
  return picked_;
}

void frmInvList::Accept() {
  if (currentPart_ == Inventory::kNoPart) {
    shop_.desktop.Tell("No part is selected.", Caption());
    return;
  }
  picked_ = PickedPart{currentPart_, inventory_.Tag(currentPart_).Get(inventorytag::Tag)};
  Hide();
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
