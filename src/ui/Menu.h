#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace lantos::ui {

class Form;

// An entry of a menu, or a menu. Owned by its form or its parent; the pointers stay good for the form's life.
class MenuItem {
 public:
  MenuItem(Form& form, std::string name, std::string caption, int index = -1)
      : form_(form), name_(std::move(name)), caption_(std::move(caption)), index_(index) {}
  MenuItem(const MenuItem&) = delete;

  MenuItem& Add(std::string name, std::string caption, std::function<void()> onClick = nullptr, int index = -1);

  const std::string& Name() const { return name_; }
  std::string FullName() const;  // "mnuShowStat(4)"
  const std::string& Caption() const { return caption_; }
  bool Checked() const { return checked_; }
  void SetChecked(bool checked);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  const std::vector<std::unique_ptr<MenuItem>>& Items() const { return items_; }
  MenuItem* Find(const std::string& fullName);

  std::function<void()> OnClick;
  std::function<void()> OnChanged;  // set by whoever shows the menu
  void DoClick();                   // guarded

 private:
  void Changed();
  Form& form_;
  std::string name_;
  std::string caption_;
  int index_;
  bool checked_ = false;
  bool enabled_ = true;
  bool visible_ = true;
  std::vector<std::unique_ptr<MenuItem>> items_;
};

// The menus of a form: those on its bar, and those that only pop up (their own entries invisible on the bar).
class MenuBar {
 public:
  MenuItem& AddMenu(std::string name, std::string caption);
  const std::vector<std::unique_ptr<MenuItem>>& Menus() const { return menus_; }
  MenuItem* FindMenu(const std::string& fullName) const;  // an entry of any of them; null when there is none

 protected:
  explicit MenuBar(Form& form) : form_(form) {}

 private:
  Form& form_;
  std::vector<std::unique_ptr<MenuItem>> menus_;
};

}  // namespace lantos::ui
