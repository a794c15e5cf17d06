#include "ui/Form.h"

#include <algorithm>

#include "frame/Text.h"

namespace lantos::ui {

Form::Form(Desktop& desktop, std::string name, std::string caption)
    : desktop_(desktop), name_(std::move(name)), caption_(std::move(caption)) {}

Form::~Form() {
  // The derived part is gone: whoever made the form has unloaded it, or leaves in a hurry.
  if (loaded_) desktop_.FormUnloaded(*this);
  desktop_.Forget(*this);
}

void Form::Register(Control& control) { controls_.push_back(&control); }

void Form::Forget(Control& control) {
  std::erase(controls_, &control);
  if (focus_ == &control) focus_ = nullptr;
  if (defaultButton_ == &control) defaultButton_ = nullptr;
  if (cancelButton_ == &control) cancelButton_ = nullptr;
}

void Form::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  if (peer_ != nullptr) peer_->CaptionChanged();
  if (loaded_) desktop_.FormCaptionChanged(*this);
}

void Form::SetBackColor(std::optional<Color> color) {
  backColor_ = color;
  if (peer_ != nullptr) peer_->LookChanged();
}

void Form::SetSize(Twips width, Twips height) {
  width_ = width;
  height_ = height;
  if (peer_ != nullptr) peer_->PlaceChanged();
}

void Form::SetPosition(Twips left, Twips top) {
  left_ = left;
  top_ = top;
  if (peer_ != nullptr) peer_->PlaceChanged();
}

void Form::SetState(WindowState state) {
  state_ = state;
  if (peer_ != nullptr) peer_->PlaceChanged();
}

Control* Form::Find(std::string_view fullName) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](Control* control) { return control->FullName() == fullName; });
  return found == controls_.end() ? nullptr : *found;
}

MenuItem& Form::AddMenu(std::string name, std::string caption) {
  menus_.push_back(std::make_unique<MenuItem>(*this, std::move(name), std::move(caption)));
  return *menus_.back();
}

MenuItem* Form::FindMenu(const std::string& fullName) const {
  for (const auto& menu : menus_) {
    if (MenuItem* found = menu->Find(fullName)) return found;
  }
  return nullptr;
}

void Form::LoadForm() {
  if (loaded_) return;
  loaded_ = true;
  desktop_.Remember(*this);
  desktop_.FormLoaded(*this);
  OnLoad();
}

void Form::ShowModal() {
  LoadForm();
  if (!loaded_) return;  // it unloaded itself while loading
  Show();
  if (visible_) desktop_.RunModal(*this);
}

void Form::Show() {
  LoadForm();
  if (!loaded_ || visible_) return;
  visible_ = true;
  desktop_.Remember(*this);
  TakeFirstFocus();
  desktop_.FormShown(*this);
  OnActivate();
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  desktop_.FormHidden(*this);
}

bool Form::Unload() {
  if (!loaded_) return true;
  bool refuse = false;
  OnUnload(refuse);
  if (refuse) return false;
  if (!loaded_) return true;
  Hide();
  loaded_ = false;
  focus_ = nullptr;
  desktop_.FormUnloaded(*this);
  desktop_.Forget(*this);
  return true;
}

void Form::SetFocus(Control& control) {
  if (focus_ == &control || !control.TakesFocus() || !control.IsUsable()) return;
  Control* left = focus_;
  focus_ = &control;
  if (left != nullptr && left->OnLostFocus) left->OnLostFocus();
  if (focus_ != &control) return;  // the lost-focus event moved it elsewhere
  if (peer_ != nullptr) peer_->FocusChanged();
  if (control.OnGotFocus) control.OnGotFocus();
}

bool Form::MoveFocus(Control* to) {
  if (to == nullptr || to == focus_) return true;
  if (!to->TakesFocus()) return true;
  Control* left = focus_;
  bool keepFocus = false;
  Run([&] {
    if (left != nullptr && left->OnValidate && to->CausesValidation()) left->OnValidate(keepFocus);
  });
  if (keepFocus || focus_ != left) {
    if (peer_ != nullptr) peer_->FocusChanged();
    return false;
  }
  Run([&] { SetFocus(*to); });
  return focus_ == to;
}

Control* Form::NextInTabOrder(bool backwards) const {
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

void Form::TakeFirstFocus() {
  if (focus_ != nullptr) return;
  focus_ = NextInTabOrder();
  if (focus_ == nullptr) return;
  if (peer_ != nullptr) peer_->FocusChanged();
  if (focus_->OnGotFocus) focus_->OnGotFocus();
}

void Form::LeaveUnusableFocus() {
  if (!visible_ || focus_ == nullptr || focus_->IsUsable()) return;
  if (Control* next = NextInTabOrder()) SetFocus(*next);
}

void Form::DoClose() {
  Run([this] {
    bool refuse = false;
    OnQueryClose(refuse);
    if (!refuse && visible_) Unload();
  });
}

void Form::DoMouseUp(MouseButton button) {
  Run([&] { OnMouseUp(button); });
}

void Form::DoResize(Twips width, Twips height, WindowState state) {
  const bool changed = width_ != width || height_ != height || state_ != state;
  width_ = width;
  height_ = height;
  state_ = state;
  if (changed) Run([this] { OnResize(); });
}

void Form::Run(const std::function<void()>& event) {
  try {
    event();
  } catch (const std::exception& error) {
    desktop_.SetPointer(Pointer::Normal);
    desktop_.EndEvent(error);
  }
}

}  // namespace lantos::ui
