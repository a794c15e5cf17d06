#include "ui/FormKeys.h"

#include <algorithm>

#include "frame/Text.h"

// The platform's part of the keyboard, for desktops that have no window system to do it.
namespace lantos::ui {

namespace {

// The letter behind the first single "&", or NUL.
char MnemonicOf(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return ToUpper(caption[i + 1]);
    ++i;
  }
  return '\0';
}

void StepRow(RowControl& rows, int step) {
  const int row = std::clamp(rows.ListIndex() + step, 0, rows.ListCount() - 1);
  if (rows.ListCount() > 0 && row != rows.ListIndex()) rows.DoSelect(row);
}

void StepRow(Grid& grid, int step) {
  const int row = std::clamp(grid.Row() + step, 0, grid.RowCount() - 1);
  if (grid.RowCount() > 0 && row != grid.Row()) grid.DoSelect(row);
}

// A text of several lines takes the Enter key for itself. Without a caret, its end is where typing goes on.
void BreakLine(TextBox& page) {
  constexpr std::string_view kLineEnd = "\r\n";
  const bool full = page.MaxLength() != 0 && page.Text().size() + kLineEnd.size() > page.MaxLength();
  if (!page.Locked() && !full) page.DoEdit(page.Text() + std::string(kLineEnd));
}

constexpr int kRowsAPage = 10;
constexpr int kToTheEnd = 1000000;  // rows; more than any list holds

int StepOf(const KeyPress& key) {
  if (key.Is("Up")) return -1;
  if (key.Is("Down")) return 1;
  if (key.Is("PgUp")) return -kRowsAPage;
  if (key.Is("PgDn")) return kRowsAPage;
  if (key.Is("Home")) return -kToTheEnd;
  if (key.Is("End")) return kToTheEnd;
  return 0;
}

}  // namespace

void FormKeys::Forget(Control& control) {
  TabOrder::Forget(control);
  if (defaultButton_ == &control) defaultButton_ = nullptr;
  if (cancelButton_ == &control) cancelButton_ = nullptr;
}

void FormKeys::PreviewKey(KeyPress& key) {
  Run([&] { OnKeyDown(key); });
  if (key.cleared || !Visible() || Focus() == nullptr) return;
  Run([&] {
    if (Focus()->OnKeyDown) Focus()->OnKeyDown(key);
  });
}

void FormKeys::PressKey(KeyPress key) {
  PreviewKey(key);
  if (!key.cleared && Visible()) PlatformKey(key);
}

void FormKeys::PlatformKey(const KeyPress& key) {
  if (key.IsAlt("F4")) return DoClose();
  if (key.alt && !key.control && key.key.size() == 1) {
    PressMnemonic(key.key[0]);
  } else if (key.key == "Tab" && !key.alt && !key.control) {
    MoveFocus(NextInTabOrder(key.shift));
  } else if (key.Is("Esc")) {
    if (cancelButton_ != nullptr && cancelButton_->IsUsable()) cancelButton_->DoClick();
  } else if (key.Is("Enter")) {
    PressEnter();
  } else if (key.Is("Space")) {
    PressSpace();
  } else if (const int step = StepOf(key)) {
    if (auto* rows = dynamic_cast<RowControl*>(Focus())) StepRow(*rows, step);
    if (auto* grid = dynamic_cast<Grid*>(Focus())) StepRow(*grid, step);
  }
}

void FormKeys::PressEnter() {
  if (auto* page = dynamic_cast<TextBox*>(Focus()); page != nullptr && page->MultiLine()) return BreakLine(*page);
  auto* focused = dynamic_cast<Button*>(Focus());
  Button* button = focused != nullptr ? focused : defaultButton_;
  if (button != nullptr && button->IsUsable()) button->DoClick();
}

void FormKeys::PressSpace() {
  Control* focus = Focus();
  const bool toggles = dynamic_cast<Button*>(focus) != nullptr || dynamic_cast<CheckBox*>(focus) != nullptr ||
                       dynamic_cast<OptionButton*>(focus) != nullptr;
  if (toggles && focus->IsUsable()) focus->DoClick();
}

bool FormKeys::PressMnemonic(char letter) {
  bool labelHit = false;
  for (Control* control : Controls()) {
    if (labelHit && control->TakesFocus() && control->IsUsable()) {
      MoveFocus(control);
      return true;
    }
    const auto* captioned = dynamic_cast<Captioned*>(control);
    if (captioned == nullptr || MnemonicOf(captioned->Caption()) != ToUpper(letter) || !control->IsUsable()) continue;
    if (dynamic_cast<Label*>(control) != nullptr || dynamic_cast<Frame*>(control) != nullptr) {
      labelHit = true;  // the mnemonic of a label goes to the control behind it
      continue;
    }
    if (MoveFocus(control)) control->DoClick();
    return true;
  }
  return false;
}

}  // namespace lantos::ui
