#include "ui/FormKeys.h"

#include <algorithm>

#include "frame/Text.h"
#include "ui/Form.h"
#include "ui/HelpDesk.h"
#include "ui/Mnemonic.h"
#include "ui/SpokenName.h"

// The platform's part of the keyboard, for desktops that have no window system to do it.
namespace lantos::ui {

namespace {

// What a label that only the design knows leads to by its letter.
Control* FieldLabelled(const std::vector<Control*>& controls, char letter) {
  const auto field = std::find_if(controls.begin(), controls.end(), [&](const Control* control) {
    const std::string_view label = DesignedLabelOf(control->Owner().Name(), control->FullName());
    return control->TakesFocus() && control->IsUsable() && MnemonicOf(label) == ToUpper(letter);
  });
  return field == controls.end() ? nullptr : *field;
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

// An open list is a window of its own: what it has no use for goes nowhere else.
void FormKeys::PressKey(KeyPress key) {
  if (const auto* combo = dynamic_cast<ComboBox*>(Focus()); combo != nullptr && combo->DroppedRow()) {
    PressControlKey(key);
    return;
  }
  PreviewKey(key);
  if (!key.cleared && Visible()) PlatformKey(key);
}

void FormKeys::PlatformKey(const KeyPress& key) {
  if (key.IsAlt("F4")) return DoClose();
  if (PressHelpKey(dynamic_cast<Form&>(*this), key)) return;
  if (IsMenuKey(key)) return PressMenuKey();
  if (key.alt && !key.control && key.key.size() == 1) {
    PressMnemonic(key.key[0]);
  } else if (key.key == "Tab" && !key.alt && !key.control) {
    MoveFocus(NextInTabOrder(key.shift));
  } else if (key.Is("Esc")) {
    if (cancelButton_ != nullptr && cancelButton_->IsUsable()) cancelButton_->DoClick();
  } else if (key.Is("Enter")) {
    PressEnter();
  } else if (!PressControlKey(key)) {
    if (PressTextKey(key) || !key.Is("Space")) return;
    PressSpace();
  }
}

bool FormKeys::PressControlKey(const KeyPress& key) {
  Control* focus = Focus();
  if (focus == nullptr || !focus->IsUsable()) return false;
  if (auto* button = dynamic_cast<Captioned*>(focus)) return PressButtonKey(*button, key);
  if (auto* month = dynamic_cast<MonthView*>(focus)) return month->DoKey(key);
  if (auto* picker = dynamic_cast<DTPicker*>(focus)) return picker->DoKey(key);
  return rowKeys_.Press(*focus, key);
}

bool FormKeys::PressTextKey(const KeyPress& key) {
  auto* text = dynamic_cast<Typing*>(Focus());
  if (text == nullptr) return false;
  bool taken = false;
  Run([&] { taken = text->PressTextKey(key, Clipboard()); });
  return taken;
}

void FormKeys::PressMenuKey() {
  // A text has a menu of its own.
  if (auto* combo = dynamic_cast<ComboBox*>(Focus()); combo != nullptr && combo->Editable()) return;
  if (dynamic_cast<TextBox*>(Focus()) != nullptr) return;
  for (Control* control = Focus(); control != nullptr; control = control->Container()) {
    if (control->OnMouseUp) return control->DoMouseUp(MouseButton::Right);
  }
  DoMouseUp(MouseButton::Right);
}

void FormKeys::PressEnter() {
  if (auto* page = dynamic_cast<TextBox*>(Focus()); page != nullptr && page->MultiLine()) return page->DoInsert("\n");
  if (auto* month = dynamic_cast<MonthView*>(Focus())) return month->DoPick(month->Value());
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
      // What stands before a button is a text that happens to have an ampersand.
      if (dynamic_cast<Button*>(control) == nullptr) return MoveFocus(control);
      labelHit = false;
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
  Control* field = FieldLabelled(Controls(), letter);
  return field != nullptr && MoveFocus(field);
}

}  // namespace lantos::ui
