#include "contents/notes/frmWOChklst.h"

#include <algorithm>
#include <utility>

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 9000;
constexpr ui::Twips kHeight = 6600;

// A category without its brackets.
std::string Heading(const std::string& name) {
  const std::size_t end = name.find(']');
  return name.substr(1, end == std::string::npos ? std::string::npos : end - 1);
}

}  // namespace

frmWOChklst::frmWOChklst(Shop& shop)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmWOChklst", "Estimate Checklist"),
      table_(shop.records.checkList) {
  SetDesignedSize(kWidth, kHeight);
  frameCategories.Holds(List1, cmdSelect1, cmdClear1);
  frameItems.Holds(List2, cmdSelect2, cmdClear2, lblService, Service, lblDueBackMiles, DueBackMiles);
  List1.SetCheckBoxes(true);
  List2.SetCheckBoxes(true);
  UseButtons(cmdSave, cmdCancel);
  List1.OnClick = [this] { CategoryChosen(List1.ListIndex()); };
  List1.OnItemCheck = [this](int row) { TickCategory(row, List1.Checked(row)); };
  List2.OnClick = [this] { ShowValues(); };
  List2.OnItemCheck = [this](int row) { TickItem(row, List2.Checked(row)); };
  cmdSelect1.OnClick = [this] { SetAll(List1, Boxes::Ticked); };
  cmdClear1.OnClick = [this] { SetAll(List1, Boxes::Cleared); };
  cmdSelect2.OnClick = [this] { SetAll(List2, Boxes::Ticked); };
  cmdClear2.OnClick = [this] { SetAll(List2, Boxes::Cleared); };
  Service.OnChange = [this] {
    if (!showing_ && List2.ListIndex() >= 0) Item(List2, List2.ListIndex()).Service = Service.Text();
  };
  DueBackMiles.OnChange = [this] {
    if (!showing_ && List2.ListIndex() >= 0) Item(List2, List2.ListIndex()).DueBackMiles = DueBackMiles.Text();
  };
  cmdSelect1.SetToolTip("Select All Categories");
  cmdClear1.SetToolTip("Clear All Categories");
  cmdSelect2.SetToolTip("Select All Items");
  cmdClear2.SetToolTip("Clear All Items");
  cmdSave.SetToolTip("Save <F10>");
  cmdCancel.SetToolTip("Discard Changes <Esc>");
}

void frmWOChklst::OnLoad() {
  SizedForm::OnLoad();
  before_ = table_.items;
  loadedBefore_ = table_.ChecklistLoaded;
  for (std::size_t i = 0; i < table_.items.size(); ++i) {
    const ChecklistItem& item = table_.items[i];
    if (!item.IsCategory()) continue;
    const int row = List1.AddItem(Heading(item.Name), static_cast<std::int32_t>(i));
    List1.SetChecked(row, item.Used);
  }
  ShowFirstCategory();
  ShowValues();
}

// Nobody has chosen it yet, so nothing is unticked.
void frmWOChklst::ShowFirstCategory() {
  if (List1.ListCount() == 0) return;
  const auto choose = std::exchange(List1.OnClick, nullptr);
  List1.SetListIndex(0);
  List1.OnClick = choose;
  ListItems(static_cast<std::size_t>(List1.ItemData(0)));
}

ChecklistItem& frmWOChklst::Item(const ui::ListBox& list, int row) {
  return table_.items.at(static_cast<std::size_t>(list.ItemData(row)));
}

void frmWOChklst::CategoryChosen(int row) {
  if (row < 0) return;
  Item(List1, row).Used = List1.Checked(row);
  FillItems(static_cast<std::size_t>(List1.ItemData(row)));
}

void frmWOChklst::TickCategory(int row, bool ticked) {
  Item(List1, row).Used = ticked;
  const auto category = static_cast<std::size_t>(List1.ItemData(row));
  if (!ticked) {
    for (std::size_t i = category + 1; i < EndOfCategory(category); ++i) table_.items[i].Used = false;
  }
  if (row == List1.ListIndex()) FillItems(category);
}

void frmWOChklst::TickItem(int row, bool ticked) { Item(List2, row).Used = ticked; }

void frmWOChklst::SetAll(ui::ListBox& list, Boxes boxes) {
  for (int row = 0; row < list.ListCount(); ++row) list.SetChecked(row, boxes == Boxes::Ticked);
}

std::size_t frmWOChklst::EndOfCategory(std::size_t category) const {
  const auto next = std::find_if(table_.items.begin() + static_cast<std::ptrdiff_t>(category) + 1, table_.items.end(),
                                 [](const ChecklistItem& item) { return item.IsCategory(); });
  return static_cast<std::size_t>(next - table_.items.begin());
}

// A category that isn't ticked has no ticked items.
void frmWOChklst::FillItems(std::size_t category) {
  for (std::size_t i = category + 1; i < EndOfCategory(category) && !table_.items[category].Used; ++i) {
    table_.items[i].Used = false;
  }
  ListItems(category);
}

void frmWOChklst::ListItems(std::size_t category) {
  List2.Clear();
  for (std::size_t i = category + 1; i < EndOfCategory(category); ++i) {
    const ChecklistItem& item = table_.items[i];
    const int row = List2.AddItem(item.Name, static_cast<std::int32_t>(i));
    List2.SetChecked(row, item.Used);
  }
  ShowValues();
}

void frmWOChklst::ShowValues() {
  const int row = List2.ListIndex();
  const ChecklistItem none;
  const ChecklistItem& item = row < 0 ? none : Item(List2, row);
  showing_ = true;
  Service.SetText(item.Service);
  DueBackMiles.SetText(item.DueBackMiles);
  showing_ = false;
  Service.SetEnabled(row >= 0);
  DueBackMiles.SetEnabled(row >= 0);
}

void frmWOChklst::Accept() {
  const auto& categories = List1.Rows();
  table_.ChecklistLoaded =
      std::any_of(categories.begin(), categories.end(), [](const ui::ListRow& row) { return row.checked; });
  SaveAndHide();
}

void frmWOChklst::Cancel() {
  table_.items = before_;
  table_.ChecklistLoaded = loadedBefore_;
  Hide();
}

}  // namespace lantos
