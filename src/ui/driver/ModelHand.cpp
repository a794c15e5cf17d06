#include "ui/driver/ModelHand.h"

#include "ui/Form.h"

namespace lantos::ui {

namespace {

// An event procedure on the way may have hidden, disabled or closed what the hand was about to touch.
bool CanTouch(const Control& control) { return control.Owner().Visible() && control.IsUsable(); }

bool GoTo(Control& control) { return control.Owner().MoveFocus(&control) && CanTouch(control); }

int CurrentRow(const Control& control) {
  if (const auto* rows = dynamic_cast<const RowControl*>(&control)) return rows->ListIndex();
  if (const auto* grid = dynamic_cast<const Grid*>(&control)) return grid->Row();
  return -1;
}

void SelectWithoutMoving(Control& control, const std::vector<int>& rows) {
  const int row = rows.empty() ? -1 : rows.front();
  auto* list = dynamic_cast<ListBox*>(&control);
  if (list != nullptr && list->MultiSelect()) {
    list->DoSelectRows(rows);
  } else if (auto* rowControl = dynamic_cast<RowControl*>(&control)) {
    rowControl->DoSelect(row);
  } else if (auto* grid = dynamic_cast<Grid*>(&control)) {
    grid->DoSelect(row);
  }
}

// Without what no key types.
std::string TypableIn(const std::string& text) {
  std::string typed = WithLineFeeds(text);
  std::erase_if(typed, [](char character) { return character != '\n' && !CanBeTyped(character); });
  return typed;
}

// Rows that lie open to the mouse. Clicking a drop-down opens it; only a row of it is a click of the program's.
bool HasRows(const Control& control) {
  return dynamic_cast<const ListBox*>(&control) != nullptr || dynamic_cast<const Grid*>(&control) != nullptr;
}

// What a click is one of the program's on, wherever it is.
bool HasOwnClick(const Control& control) {
  return dynamic_cast<const Captioned*>(&control) != nullptr || dynamic_cast<const MonthView*>(&control) != nullptr;
}

}  // namespace

std::string ModelHand::Click(Control& control, MouseButton button) {
  if (!GoTo(control)) return "";
  const bool hasRows = HasRows(control);
  if (button == MouseButton::Left && hasRows && CurrentRow(control) >= 0) {
    return ClickRow(control, CurrentRow(control), button);
  }
  // Behind a short text, which the middle of its field is.
  if (auto* text = dynamic_cast<TextBox*>(&control)) text->PutCaret(std::string::npos);
  if (button == MouseButton::Right || hasRows || !control.TakesFocus()) control.DoMouseUp(button);
  if (button == MouseButton::Left && CanTouch(control) && HasOwnClick(control)) control.DoClick();
  return "";
}

std::string ModelHand::DoubleClick(Control& control) {
  if (HasRows(control) && CurrentRow(control) >= 0) return DoubleClickRow(control, CurrentRow(control));
  Click(control, MouseButton::Left);
  const bool hasDoubleClick = HasRows(control) || !control.TakesFocus();
  if (hasDoubleClick && CanTouch(control) && control.HasFocus() == control.TakesFocus()) control.DoDoubleClick();
  return "";
}

std::string ModelHand::ClickRow(Control& control, int row, MouseButton button) {
  if (!GoTo(control)) return "";
  // The right button only makes the row the current one; what is current already isn't clicked again.
  if (button == MouseButton::Left || CurrentRow(control) != row) SelectWithoutMoving(control, {row});
  if (CanTouch(control) && HasRows(control)) control.DoMouseUp(button);
  return "";
}

std::string ModelHand::DoubleClickRow(Control& control, int row) {
  if (!GoTo(control)) return "";
  SelectWithoutMoving(control, {row});
  if (CanTouch(control) && HasRows(control)) control.DoMouseUp(MouseButton::Left);
  if (CanTouch(control) && HasRows(control)) control.DoDoubleClick();
  return "";
}

std::string ModelHand::ClickHeading(Grid& grid, int column) {
  if (GoTo(grid)) grid.DoHeadClick(column);
  return "";
}

std::string ModelHand::SelectRows(Control& control, const std::vector<int>& rows) {
  if (GoTo(control)) SelectWithoutMoving(control, rows);
  return "";
}

std::string ModelHand::Check(Control& control, bool value) {
  if (ReadControl(control).checked == value) return "";
  if (GoTo(control)) control.DoClick();
  return "";
}

std::string ModelHand::CheckRow(ListBox& list, int row, bool value) {
  if (list.Checked(row) == value || !GoTo(list)) return "";
  list.DoCheck(row, value);
  if (CanTouch(list) && row < list.ListCount() && list.ListIndex() != row) list.DoSelect(row);
  return "";
}

std::string ModelHand::Type(Control& control, const std::string& text) {
  if (!GoTo(control)) return "";
  if (auto* box = dynamic_cast<TextBox*>(&control)) box->DoType(TypableIn(text));
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) combo->DoType(TypableIn(text));
  return "";
}

std::string ModelHand::Insert(Control& control, const std::string& text, int at) {
  if (!GoTo(control)) return "";
  dynamic_cast<Typing&>(control).PutCaret(static_cast<std::size_t>(at));
  if (auto* box = dynamic_cast<TextBox*>(&control)) box->DoInsert(TypableIn(text));
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) combo->DoInsert(TypableIn(text));
  return "";
}

std::string ModelHand::Leave(Form& form) {
  form.MoveFocus(form.NextInTabOrder());
  return "";
}

std::string ModelHand::PressKey(Form& form, const KeyPress& key) {
  form.PressKey(key);
  return "";
}

std::string ModelHand::Pick(Control& control, DaySerial day, bool twice) {
  if (!GoTo(control)) return "";
  if (auto* picker = dynamic_cast<DTPicker*>(&control)) {
    picker->DoPick(day);
  } else if (auto* month = dynamic_cast<MonthView*>(&control)) {
    twice ? month->DoDoublePick(day) : month->DoPick(day);
  }
  return "";
}

std::string ModelHand::ChooseMenu(Form&, MenuItem& item) {
  item.DoClick();
  return "";
}

std::string ModelHand::ClickForm(Form& form, MouseButton button) {
  form.DoMouseUp(button);
  return "";
}

std::string ModelHand::Close(Form& form) {
  form.DoClose();
  return "";
}

std::string ModelHand::Screenshot(Form*, const std::filesystem::path&) {
  return "there are no pixels without real windows";
}

void ModelHand::Settle() {
  if (onSettle) onSettle();
}

}  // namespace lantos::ui
