#include "ui/Control.h"

#include "ui/Form.h"

namespace lantos::ui {

Control::Control(Form& form, std::string name, int index) : form_(form), name_(std::move(name)), index_(index) {
  form_.Register(*this);
}

Control::~Control() { static_cast<TabOrder&>(form_).Forget(*this); }

std::string Control::FullName() const { return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")"; }

void Control::SetContainer(Frame& frame) { container_ = &frame; }

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed(Aspect::Shown);
  if (!visible) form_.LeaveUnusableFocus();
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed(Aspect::Enabled);
  if (!enabled) form_.LeaveUnusableFocus();
}

bool Control::IsShown() const { return visible_ && (container_ == nullptr || container_->IsShown()); }

bool Control::IsUsable() const { return visible_ && enabled_ && (container_ == nullptr || container_->IsUsable()); }

bool Control::HasFocus() const { return form_.Focus() == this; }

void Control::SetFocus() { form_.SetFocus(*this); }

void Control::DoClick() {
  form_.Run([this] { FireClick(); });
}

void Control::DoDoubleClick() {
  form_.Run([this] {
    if (OnDoubleClick) OnDoubleClick();
  });
}

void Control::DoMouseUp(MouseButton button) {
  form_.Run([&] {
    if (OnMouseUp) OnMouseUp(button);
  });
}

void Control::Changed(Aspect aspect) {
  if (peer_ != nullptr) peer_->Refresh(aspect);
}

void Control::FireClick() {
  if (OnClick) OnClick();
}

}  // namespace lantos::ui
