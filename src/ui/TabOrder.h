#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "ui/Controls.h"

namespace lantos::ui {

// The controls of a form in the order of the Tab key, and the focus among them.
class TabOrder {
 public:
  virtual ~TabOrder() = default;
  TabOrder(const TabOrder&) = delete;
  TabOrder& operator=(const TabOrder&) = delete;

  const std::vector<Control*>& Controls() const { return controls_; }
  Control* Find(std::string_view fullName) const;  // null when there is none

  Control* Focus() const { return focus_; }
  void SetFocus(Control& control);  // from code: lost focus and got focus fire, validation doesn't
  // The person moves on: the control that is left validates; false when it kept the focus.
  bool MoveFocus(Control* to);
  Control* NextInTabOrder(bool backwards = false) const;

  virtual bool Visible() const = 0;
  // Runs an event procedure: an error ends it, is shown and logged, and the program goes on.
  virtual void Run(const std::function<void()>& event) = 0;

 protected:
  TabOrder() = default;
  void TakeFirstFocus();
  void DropFocus() { focus_ = nullptr; }
  virtual void FocusMoved() = 0;  // to be shown
  virtual void Forget(Control& control);

 private:
  friend class Control;
  void Register(Control& control) { controls_.push_back(&control); }
  void LeaveUnusableFocus();  // the focused control was hidden or disabled: the next one gets the focus

  std::vector<Control*> controls_;
  Control* focus_ = nullptr;
};

}  // namespace lantos::ui
