#include "board/ListKeys.h"

#include "ui/Form.h"

namespace lantos {

namespace {

constexpr const char* kOpens = "Open the estimate <Enter>";

void StepToEstimate(ui::ListBox& list, int step) {
  // With nothing selected the first Down takes the first estimate, and so does Up.
  int row = list.ListIndex() < 0 ? 0 : list.ListIndex() + step;
  while (row >= 0 && row < list.ListCount() && list.List(row).starts_with(' ')) row += step;
  // The selected line may be one behind the first: Up then ends at the estimate's own.
  if (row >= 0 && row < list.ListCount()) list.SetListIndex(row);
}

// An estimate may have more lines than a page: the page ends inside of it, and the click takes the row back to its
// first line.
void PageToEstimate(ui::ListBox& list, const ui::KeyPress& key, int step) {
  const int row = list.ListIndex();
  list.Owner().PressControlKey(key);
  if (row >= 0 && list.ListIndex() == row) StepToEstimate(list, step);
}

void OpenOn(ui::KeyPress& key, ui::ListBox& list) {
  if (!key.Is("Enter") || list.ListIndex() < 0) return;
  key.Clear();
  list.OnDoubleClick();
}

}  // namespace

void OpenByEnter(ui::ListBox& list) {
  list.SetToolTip(kOpens);
  list.OnKeyDown = [&list](ui::KeyPress& key) { OpenOn(key, list); };
}

void WalkByEstimates(ui::ListBox& list) {
  list.SetToolTip(kOpens);
  list.OnKeyDown = [&list](ui::KeyPress& key) {
    OpenOn(key, list);
    ui::KeyPress pressed = key;
    pressed.shift = false;  // one row alone can be selected
    const bool pages = pressed.Is("PgDn") || pressed.Is("PgUp");
    const int step = pressed.Is("Down") || pressed.Is("PgDn") ? 1 : pressed.Is("Up") || pressed.Is("PgUp") ? -1 : 0;
    if (step == 0) return;
    key.Clear();
    pages ? PageToEstimate(list, pressed, step) : StepToEstimate(list, step);
  };
}

void ServeByKeys(ui::ListBox& list, const ListButtons& buttons) {
  list.SetToolTip("Add <Insert>, change <Enter>, remove <Delete>");
  list.OnKeyDown = [buttons](ui::KeyPress& key) {
    ui::Button* button = key.Is("Insert")   ? &buttons.add
                         : key.Is("Enter")  ? &buttons.change
                         : key.Is("Delete") ? &buttons.remove
                                            : nullptr;
    if (button == nullptr) return;
    key.Clear();
    if (button->IsUsable()) button->OnClick();
  };
  list.OnDoubleClick = [buttons] {
    if (buttons.change.IsUsable()) buttons.change.OnClick();
  };
}

}  // namespace lantos
