#include "ui/Menu.h"

#include "ui/Form.h"

namespace lantos::ui {

MenuItem& MenuItem::Add(std::string name, std::string caption, std::function<void()> onClick, int index) {
  items_.push_back(std::make_unique<MenuItem>(form_, std::move(name), std::move(caption), index));
  items_.back()->OnClick = std::move(onClick);
  return *items_.back();
}

std::string MenuItem::FullName() const { return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")"; }

void MenuItem::SetChecked(bool checked) {
  if (checked_ == checked) return;
  checked_ = checked;
  Changed();
}

void MenuItem::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed();
}

void MenuItem::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed();
}

MenuItem* MenuItem::Find(const std::string& fullName) {
  if (FullName() == fullName) return this;
  for (const auto& item : items_) {
    if (MenuItem* found = item->Find(fullName)) return found;
  }
  return nullptr;
}

void MenuItem::DoClick() {
  form_.Run([this] {
    if (OnClick) OnClick();
  });
}

void MenuItem::Changed() {
  if (OnChanged) OnChanged();
}

MenuItem& MenuBar::AddMenu(std::string name, std::string caption) {
  menus_.push_back(std::make_unique<MenuItem>(form_, std::move(name), std::move(caption)));
  return *menus_.back();
}

MenuItem* MenuBar::FindMenu(const std::string& fullName) const {
  for (const auto& menu : menus_) {
    if (MenuItem* found = menu->Find(fullName)) return found;
  }
  return nullptr;
}

}  // namespace lantos::ui
