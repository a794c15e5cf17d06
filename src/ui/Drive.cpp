#include "ui/Drive.h"

#include "ui/Browser.h"
#include "ui/SpokenName.h"

namespace lantos::ui {

namespace {

void ReadRows(const RowControl& control, ControlState& state) {
  state.rows = control.Rows();
  state.selected = control.ListIndex();
  const auto* list = dynamic_cast<const ListBox*>(&control);
  if (list != nullptr && list->MultiSelect()) return;
  for (std::size_t i = 0; i < state.rows->size(); ++i) {
    (*state.rows)[i].selected = static_cast<int>(i) == control.ListIndex();
  }
}

void ReadPage(const Browser& page, ControlState& state) {
  state.text = page.Text();
  state.selected = page.MarkedLink();
  state.rows.emplace();
  for (const Browser::Link& link : page.Links()) {
    const bool isMarked = static_cast<int>(state.rows->size()) == page.MarkedLink();
    state.rows->push_back({.text = link.text, .selected = isMarked});
  }
}

}  // namespace

ControlState ReadControl(const Control& control) {
  ControlState state;
  state.visible = control.IsShown();
  state.name = SpokenNameOf(control);
  state.enabled = control.IsUsable() || (control.Enabled() && !control.IsShown());
  if (const auto* captioned = dynamic_cast<const Captioned*>(&control)) state.caption = captioned->Caption();
  if (const auto* check = dynamic_cast<const CheckBox*>(&control)) state.checked = check->Value();
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) state.checked = option->Value();
  if (const auto* text = dynamic_cast<const TextBox*>(&control)) {
    state.text = text->Text();
    state.locked = text->Locked();
    state.caret = static_cast<int>(text->Caret());
  }
  if (const auto* rows = dynamic_cast<const RowControl*>(&control)) ReadRows(*rows, state);
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
    state.text = combo->Text();
    if (combo->Editable()) state.caret = static_cast<int>(combo->Caret());
  }
  if (const auto* page = dynamic_cast<const Browser*>(&control)) ReadPage(*page, state);
  if (const auto* grid = dynamic_cast<const Grid*>(&control)) {
    state.cells.emplace();
    for (int row = 0; row < grid->RowCount(); ++row) state.cells->push_back(grid->RowAt(row));
    state.selected = grid->Row();
  }
  if (const auto* month = dynamic_cast<const MonthView*>(&control)) state.date = month->Value();
  if (const auto* picker = dynamic_cast<const DTPicker*>(&control)) state.date = picker->Value();
  if (const auto* bar = dynamic_cast<const ProgressBar*>(&control)) state.value = bar->Value();
  if (const auto* timer = dynamic_cast<const Timer*>(&control)) state.value = timer->Interval();
  return state;
}

}  // namespace lantos::ui
