#include "ui/TabOrder.h"

#include <algorithm>

namespace lantos::ui {

namespace {

void EnterField(Control& control) {
  if (auto* text = dynamic_cast<Typing*>(&control)) text->EnterField();
  if (auto* picker = dynamic_cast<DTPicker*>(&control)) picker->SetCurrentPart(DTPicker::Part::Month);
}

void LeaveField(Control* control) {
  if (auto* text = dynamic_cast<Typing*>(control)) text->LeaveField();
  if (auto* combo = dynamic_cast<ComboBox*>(control)) combo->Drop(std::nullopt);
}

}  // namespace

Control* TabOrder::Find(std::string_view fullName) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](Control* control) { return control->FullName() == fullName; });
  return found == controls_.end() ? nullptr : *found;
}

void TabOrder::SetFocus(Control& control) {
  if (focus_ == &control || !control.TakesFocus() || !control.IsUsable()) return;
  Control* left = focus_;
  focus_ = &control;
  LeaveField(left);
  if (left != nullptr && left->OnLostFocus) left->OnLostFocus();
  if (focus_ != &control) return;  // the lost-focus event moved it elsewhere
  FocusMoved();
  if (control.OnGotFocus) control.OnGotFocus();
  if (focus_ == &control) EnterField(control);
}

bool TabOrder::MoveFocus(Control* to) {
  if (to == nullptr || to == focus_) return true;
  if (!to->TakesFocus()) return true;
  Control* left = focus_;
  bool keepFocus = false;
  Run([&] {
    if (left != nullptr && left->OnValidate && to->CausesValidation()) left->OnValidate(keepFocus);
  });
  if (keepFocus || focus_ != left) {
    FocusMoved();
    return false;
  }
  Run([&] { SetFocus(*to); });
  return focus_ == to;
}

Control* TabOrder::NextInTabOrder(bool backwards) const {
  const auto count = static_cast<int>(controls_.size());
  const auto at = std::find(controls_.begin(), controls_.end(), focus_);
  const int start = at == controls_.end() ? (backwards ? 0 : -1) : static_cast<int>(at - controls_.begin());
  for (int step = 1; step <= count; ++step) {
    const int place = ((backwards ? start - step : start + step) % count + count) % count;
    Control* control = controls_[static_cast<std::size_t>(place)];
    if (control->TakesFocus() && control->TabStop() && control->IsUsable()) return control;
  }
  return nullptr;
}

// On a form that is shown again the field that had the focus is entered anew.
void TabOrder::TakeFirstFocus() {
  if (focus_ != nullptr) return EnterField(*focus_);
  focus_ = NextInTabOrder();
  if (focus_ == nullptr) return;
  FocusMoved();
  if (focus_->OnGotFocus) focus_->OnGotFocus();
  if (focus_ != nullptr) EnterField(*focus_);
}

void TabOrder::LeaveUnusableFocus() {
  if (!Visible() || focus_ == nullptr || focus_->IsUsable()) return;
  if (Control* next = NextInTabOrder()) SetFocus(*next);
}

void TabOrder::Forget(Control& control) {
  std::erase(controls_, &control);
  if (focus_ == &control) focus_ = nullptr;
}

}  // namespace lantos::ui
