#include "ui/RowKeys.h"

#include <algorithm>

#include "frame/Text.h"
#include "ui/Form.h"

namespace lantos::ui {

namespace {

// Letters that follow one another sooner are one word.
constexpr std::chrono::milliseconds kWordPause{1000};

int RowCount(const Control& control) {
  if (const auto* rows = dynamic_cast<const RowControl*>(&control)) return rows->ListCount();
  const auto* grid = dynamic_cast<const Grid*>(&control);
  return grid == nullptr ? 0 : grid->RowCount();
}

int CurrentRow(const Control& control) {
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control); combo != nullptr && combo->DroppedRow()) {
    return *combo->DroppedRow();
  }
  if (const auto* rows = dynamic_cast<const RowControl*>(&control)) return rows->ListIndex();
  const auto* grid = dynamic_cast<const Grid*>(&control);
  return grid == nullptr ? -1 : grid->Row();
}

// What letters are looked for in: the text of a list's row, the first column of a grid that is seen.
std::string TextOf(const Control& control, int row) {
  if (const auto* rows = dynamic_cast<const RowControl*>(&control)) return rows->List(row);
  const auto& grid = dynamic_cast<const Grid&>(control);
  const GridRow cells = grid.RowAt(row);
  for (std::size_t i = 0; i < grid.Columns().size() && i < cells.cells.size(); ++i) {
    if (!grid.Columns()[i].hidden) return cells.cells[i];
  }
  return {};
}

void GoToRow(Control& control, int row) {
  if (row == CurrentRow(control)) return;
  if (auto* list = dynamic_cast<ListBox*>(&control); list != nullptr && list->MultiSelect()) {
    list->DoSelectRows({row});
  } else if (auto* combo = dynamic_cast<ComboBox*>(&control); combo != nullptr && combo->DroppedRow()) {
    combo->Drop(row);
  } else if (auto* rows = dynamic_cast<RowControl*>(&control)) {
    rows->DoSelect(row);
  } else if (auto* grid = dynamic_cast<Grid*>(&control)) {
    grid->DoSelect(row);
  }
}

// The row that a key of movement leads to; -1: it is none.
int RowBy(const Control& control, std::string_view key) {
  const int last = RowCount(control) - 1;
  const int row = CurrentRow(control);
  const int page = control.Peer() == nullptr ? kRowsAPage : control.Peer()->RowsAPage();
  const auto stepped = [&](int step) { return row < 0 ? 0 : std::clamp(row + step, 0, last); };
  if (key == "Up") return stepped(-1);
  if (key == "Down") return stepped(1);
  if (key == "PgUp") return stepped(-page);
  if (key == "PgDn") return stepped(page);
  if (key == "Home") return 0;
  return key == "End" ? last : -1;
}

bool IsMovement(std::string_view key) {
  return key == "Up" || key == "Down" || key == "PgUp" || key == "PgDn" || key == "Home" || key == "End";
}

bool IsPlain(const KeyPress& key) { return !key.alt && !key.control; }

bool Opens(const KeyPress& key) { return key.Is("F4") || key.IsAlt("Down") || key.IsAlt("Up"); }

bool IsLetter(const KeyPress& key) { return IsPlain(key) && key.key.size() == 1; }

}  // namespace

bool RowKeys::Press(Control& control, const KeyPress& key) {
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) return PressInCombo(*combo, key);
  if (dynamic_cast<ListBox*>(&control) == nullptr && dynamic_cast<Grid*>(&control) == nullptr) return false;
  auto* list = dynamic_cast<ListBox*>(&control);
  if (list != nullptr && list->MultiSelect() && PressInList(*list, key)) return true;
  if (key.Is("Space")) return PressSpace(control);
  if (IsLetter(key)) {
    int found = -1;
    if (Search(control, CurrentRow(control), key.key[0], found)) GoToRow(control, found);
    return true;
  }
  if (key.key == "Left" || key.key == "Right") {
    if (control.Peer() != nullptr) control.Peer()->ScrollSideways(key.key == "Left" ? -1 : 1);
    return true;
  }
  if (!IsMovement(key.key)) return false;
  if (IsPlain(key) && RowCount(control) > 0) GoToRow(control, RowBy(control, key.key));
  return true;
}

// Where more than one row can be selected: Shift goes on from the row selected last, Ctrl+A takes all.
bool RowKeys::PressInList(ListBox& list, const KeyPress& key) {
  if (key.IsControl("A")) {
    std::vector<int> all(static_cast<std::size_t>(list.ListCount()));
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<int>(i);
    if (!all.empty()) list.DoSelectRows(all);
    return true;
  }
  if (!key.shift || key.control || key.alt || !IsMovement(key.key)) return false;
  if (list.ListCount() > 0) list.DoExtendTo(RowBy(list, key.key));
  return true;
}

bool RowKeys::PressSpace(Control& control) {
  const int row = CurrentRow(control);
  if (row < 0) {
    if (RowCount(control) > 0) GoToRow(control, 0);
    return true;
  }
  if (auto* list = dynamic_cast<ListBox*>(&control); list != nullptr && list->CheckBoxes()) {
    list->DoCheck(row, !list->Checked(row));
  }
  return true;
}

bool RowKeys::PressInCombo(ComboBox& combo, const KeyPress& key) {
  if (combo.DroppedRow()) return PressInDropped(combo, key);
  const bool opens = Opens(key) || (key.Is("Space") && !combo.Editable());
  if (opens) {
    if (combo.ListCount() > 0) combo.Drop(combo.ListIndex());
    return true;
  }
  const bool isText = key.key != "Up" && key.key != "Down" && key.key != "PgUp" && key.key != "PgDn";
  if (combo.Editable() && isText) return false;
  if (IsLetter(key)) {
    int found = -1;
    if (Search(combo, combo.ListIndex(), key.key[0], found)) GoToRow(combo, found);
    return true;
  }
  if (!IsMovement(key.key)) return false;
  if (IsPlain(key) && combo.ListCount() > 0) GoToRow(combo, RowBy(combo, key.key));
  return true;
}

// The open list: what is marked there is chosen by Enter alone.
bool RowKeys::PressInDropped(ComboBox& combo, const KeyPress& key) {
  if (key.Is("Esc") || Opens(key)) {
    combo.Drop(std::nullopt);
  } else if (key.Is("Enter")) {
    const int row = *combo.DroppedRow();
    combo.Drop(std::nullopt);
    if (row >= 0) combo.DoSelect(row);
  } else if (IsPlain(key) && IsMovement(key.key)) {
    GoToRow(combo, RowBy(combo, key.key));
  } else if (IsLetter(key)) {
    int found = -1;
    if (Search(combo, *combo.DroppedRow(), key.key[0], found)) GoToRow(combo, found);
  }
  return true;
}

// Goes round from a row: letters typed in a run are the beginning of a text, one letter again and again takes the next
// row that begins with it.
bool RowKeys::Search(Control& control, int from, char letter, int& found) {
  const auto now = std::chrono::steady_clock::now();
  if (searchedIn_ != &control || now - lastLetter_ > kWordPause) searched_.clear();
  searchedIn_ = &control;
  lastLetter_ = now;
  searched_ += ToUpper(letter);
  const bool sameLetter = searched_.find_first_not_of(searched_.front()) == std::string::npos;
  const std::string wanted = sameLetter ? searched_.substr(0, 1) : searched_;
  const int count = RowCount(control);
  const int start = from < 0 ? 0 : sameLetter ? from + 1 : from;
  for (int i = 0; i < count; ++i) {
    const int row = (start + i) % count;
    if (!EqualsIgnoringCase(Left(TextOf(control, row), wanted.size()), wanted)) continue;
    found = row;
    return true;
  }
  return false;
}

bool PressButtonKey(Captioned& button, const KeyPress& key) {
  const bool next = key.key == "Down" || key.key == "Right";
  if (!next && key.key != "Up" && key.key != "Left") return false;
  if (key.shift || key.control || key.alt) return true;
  const bool amongOptions = dynamic_cast<OptionButton*>(&button) != nullptr;
  std::vector<Control*> group;
  for (Control* control : button.Owner().Controls()) {
    const bool isOption = dynamic_cast<OptionButton*>(control) != nullptr;
    const bool isButton = dynamic_cast<Captioned*>(control) != nullptr && control->TakesFocus();
    if (isButton && isOption == amongOptions && control->Container() == button.Container() && control->IsUsable()) {
      group.push_back(control);
    }
  }
  const auto at = std::find(group.begin(), group.end(), &button);
  const auto count = static_cast<std::ptrdiff_t>(group.size());
  Control& to = *group[static_cast<std::size_t>((at - group.begin() + (next ? 1 : count - 1)) % count)];
  if (&to != &button && button.Owner().MoveFocus(&to) && amongOptions && to.IsUsable()) to.DoClick();
  return true;
}

}  // namespace lantos::ui
