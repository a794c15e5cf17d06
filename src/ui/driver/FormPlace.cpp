#include "ui/driver/FormPlace.h"

#include <algorithm>

#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos::ui {

namespace {

int RowCount(const Control& control) {
  if (const auto* rows = dynamic_cast<const RowControl*>(&control)) return rows->ListCount();
  if (const auto* grid = dynamic_cast<const Grid*>(&control)) return grid->RowCount();
  throw Refusal(control.FullName() + " has no rows");
}

int CheckedRow(const Control& control, int row) {
  if (row < 0 || row >= RowCount(control)) {
    throw Refusal(control.FullName() + " has no row " + std::to_string(row));
  }
  return row;
}

// The texts of a row: one in a list, one a column in a grid.
std::vector<std::string> TextsOf(const Control& control, int row) {
  if (const auto* rows = dynamic_cast<const RowControl*>(&control)) return {rows->List(row)};
  return dynamic_cast<const Grid&>(control).RowAt(row).cells;
}

template <class Match>
int FirstRow(const Control& control, Match match) {
  for (int row = 0; row < RowCount(control); ++row) {
    const std::vector<std::string> texts = TextsOf(control, row);
    if (std::any_of(texts.begin(), texts.end(), match)) return row;
  }
  return -1;
}

int RowOfText(const Control& control, const std::string& text) {
  const int equal = FirstRow(control, [&](const std::string& found) { return found == text; });
  if (equal >= 0) return equal;
  const int containing = FirstRow(control, [&](const std::string& found) { return Contains(found, text); });
  if (containing < 0) throw Refusal(control.FullName() + " has no row with '" + text + "'");
  return containing;
}

MouseButton ButtonOf(const Line& line) {
  if (!line.Has("button")) return MouseButton::Left;
  const std::string name = line.Text("button");
  if (name == "left") return MouseButton::Left;
  if (name == "right") return MouseButton::Right;
  throw Refusal("a mouse has no button '" + name + "'");
}

// The entries from the menu bar down to the one of that name; empty when there is none.
std::vector<MenuItem*> PathTo(const std::vector<std::unique_ptr<MenuItem>>& items, const std::string& name) {
  for (const auto& item : items) {
    if (item->FullName() == name) return {item.get()};
    std::vector<MenuItem*> path = PathTo(item->Items(), name);
    if (path.empty()) continue;
    path.insert(path.begin(), item.get());
    return path;
  }
  return {};
}

}  // namespace

Json FormPlace::Describe() const {
  const Control* focus = form_.Focus();
  return {{"waiting", "form"},
          {"form", ToUtf8(form_.Name())},
          {"caption", JsonText(form_.Caption())},
          {"focus", focus == nullptr ? Json(nullptr) : Json(ToUtf8(focus->FullName()))}};
}

void FormPlace::Perform(const Line& line) {
  struct Deed {
    std::string_view subject;
    std::string (FormPlace::*perform)(const Line&);
  };
  static constexpr Deed kDeeds[] = {
      {"click", &FormPlace::Click},   {"select", &FormPlace::Select}, {"check", &FormPlace::Check},
      {"insert", &FormPlace::Insert}, {"type", &FormPlace::Type},     {"leave", &FormPlace::Leave},
      {"key", &FormPlace::PressKey},  {"pick", &FormPlace::Pick},     {"menu", &FormPlace::ChooseMenu},
      {"close", &FormPlace::Close},
  };
  for (const Deed& deed : kDeeds) {
    if (deed.subject != line.Subject()) continue;
    const std::string refused = (this->*deed.perform)(line);
    if (!refused.empty()) throw Refusal(refused);
    return;
  }
  throw Refusal("the form " + form_.Name() + " waits: there is nothing to '" + line.Subject() + "'");
}

Control& FormPlace::UsableControl(const Line& line) const {
  const std::string name = line.Text("control");
  Control* control = form_.Find(name);
  if (control == nullptr || dynamic_cast<Timer*>(control) != nullptr) {
    throw Refusal("there is no control '" + name + "' on " + form_.Name() + ", which has the user");
  }
  if (!control->IsShown()) throw Refusal(name + " is hidden");
  if (!control->IsUsable()) throw Refusal(name + " is disabled");
  return *control;
}

std::string FormPlace::Click(const Line& line) {
  const MouseButton button = ButtonOf(line);
  const bool twice = line.Flag("double");
  if (twice && button == MouseButton::Right) throw Refusal("a double click is one of the left button");
  if (line.Text("control") == form_.Name()) {
    if (twice || line.Has("row") || line.Has("column")) throw Refusal("the bare form takes a plain click only");
    return hand_.ClickForm(form_, button);
  }
  Control& control = UsableControl(line);
  if (line.Has("column")) return ClickHeading(line, control);
  if (line.Has("row")) return ClickRow(line, control, button);
  return twice ? hand_.DoubleClick(control) : hand_.Click(control, button);
}

std::string FormPlace::ClickRow(const Line& line, Control& control, MouseButton button) {
  const int row = CheckedRow(control, line.Number("row"));
  return line.Flag("double") ? hand_.DoubleClickRow(control, row) : hand_.ClickRow(control, row, button);
}

std::string FormPlace::ClickHeading(const Line& line, Control& control) {
  auto* grid = dynamic_cast<Grid*>(&control);
  if (grid == nullptr) throw Refusal(control.FullName() + " has no columns");
  if (line.Has("row") || line.Has("button") || line.Has("double")) throw Refusal("a heading takes a plain click only");
  const std::string name = line.Text("column");
  const auto& columns = grid->Columns();
  const auto found = std::find_if(columns.begin(), columns.end(), [&](const GridColumn& c) { return c.name == name; });
  if (found == columns.end()) throw Refusal(control.FullName() + " has no column '" + name + "'");
  if (found->hidden) throw Refusal("the column '" + name + "' of " + control.FullName() + " is hidden");
  return hand_.ClickHeading(*grid, static_cast<int>(found - columns.begin()));
}

std::string FormPlace::Select(const Line& line) {
  if (line.Has("row") + line.Has("rows") + line.Has("text") != 1) {
    throw Refusal("one of 'row', 'rows' and 'text' tells what to select");
  }
  Control& control = UsableControl(line);
  return hand_.SelectRows(control, RowsToSelect(line, control));
}

std::vector<int> FormPlace::RowsToSelect(const Line& line, const Control& control) const {
  if (line.Has("text")) return {RowOfText(control, line.WholeText("text"))};
  if (line.Has("row")) {
    const int row = line.Number("row");
    RowCount(control);
    return row == -1 ? std::vector<int>() : std::vector<int>{CheckedRow(control, row)};
  }
  const auto* list = dynamic_cast<const ListBox*>(&control);
  if (list == nullptr || !list->MultiSelect()) throw Refusal(control.FullName() + " takes one row at a time");
  std::vector<int> rows = line.Numbers("rows");
  for (int row : rows) CheckedRow(control, row);
  return rows;
}

std::string FormPlace::Check(const Line& line) {
  Control& control = UsableControl(line);
  const bool value = line.Flag("value");
  if (line.Has("row")) {
    auto* list = dynamic_cast<ListBox*>(&control);
    if (list == nullptr || !list->CheckBoxes()) throw Refusal(control.FullName() + " has no boxes to tick");
    return hand_.CheckRow(*list, CheckedRow(control, line.Number("row")), value);
  }
  const auto* option = dynamic_cast<OptionButton*>(&control);
  if (option == nullptr && dynamic_cast<CheckBox*>(&control) == nullptr) {
    throw Refusal(control.FullName() + " can't be ticked");
  }
  if (option != nullptr && option->Value() && !value) {
    throw Refusal(control.FullName() + " is an option: ticking another one unticks it");
  }
  return hand_.Check(control, value);
}

// A field that the person can type into.
Control& FormPlace::TextControl(const Line& line) const {
  Control& control = UsableControl(line);
  const auto* text = dynamic_cast<TextBox*>(&control);
  const auto* combo = dynamic_cast<ComboBox*>(&control);
  if (text == nullptr && (combo == nullptr || !combo->Editable())) {
    throw Refusal(control.FullName() + " takes no text");
  }
  if (text != nullptr && text->Locked()) throw Refusal(control.FullName() + " is locked");
  return control;
}

std::string FormPlace::Type(const Line& line) { return hand_.Type(TextControl(line), line.Text("text")); }

std::string FormPlace::Insert(const Line& line) {
  Control& control = TextControl(line);
  const int at = line.Number("at");
  const auto* box = dynamic_cast<TextBox*>(&control);
  const std::string shown = WithLineFeeds(box != nullptr ? box->Text() : dynamic_cast<ComboBox&>(control).Text());
  if (at < 0 || static_cast<std::size_t>(at) > shown.size()) {
    throw Refusal(control.FullName() + " has no place behind " + std::to_string(at) + " characters");
  }
  return hand_.Insert(control, line.Text("text"), at);
}

std::string FormPlace::Leave(const Line&) { return hand_.Leave(form_); }

std::string FormPlace::PressKey(const Line& line) {
  const KeyPress key = ParseKey(line.Text("key"));
  if (key.key.empty()) throw Refusal("there is no key '" + line.Text("key") + "'");
  return hand_.PressKey(form_, key);
}

std::string FormPlace::Pick(const Line& line) {
  Control& control = UsableControl(line);
  const bool twice = line.Flag("double");
  const bool picker = dynamic_cast<DTPicker*>(&control) != nullptr;
  if (!picker && dynamic_cast<MonthView*>(&control) == nullptr) throw Refusal(control.FullName() + " holds no date");
  if (picker && twice) throw Refusal(control.FullName() + " takes a plain pick only");
  const auto day = ParseIsoDate(line.Text("date"));
  if (!day) throw Refusal("'" + line.Text("date") + "' is no date");
  return hand_.Pick(control, *day, twice);
}

std::string FormPlace::ChooseMenu(const Line& line) {
  const std::string name = line.Text("item");
  const std::vector<MenuItem*> path = PathTo(form_.Menus(), name);
  if (path.empty()) throw Refusal("there is no menu entry '" + name + "' on " + form_.Name());
  if (!std::all_of(path.begin(), path.end(), [](const MenuItem* item) { return item->Visible(); })) {
    throw Refusal(name + " is hidden");
  }
  if (!std::all_of(path.begin(), path.end(), [](const MenuItem* item) { return item->Enabled(); })) {
    throw Refusal(name + " is disabled");
  }
  if (!path.back()->Items().empty()) throw Refusal(name + " is a menu, not an entry of one");
  return hand_.ChooseMenu(form_, *path.back());
}

std::string FormPlace::Close(const Line&) { return hand_.Close(form_); }

}  // namespace lantos::ui
