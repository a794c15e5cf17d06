#pragma once

#include <QKeyEvent>
#include <QMouseEvent>

#include "ui/Form.h"

namespace lantos::ui {

class FormWindow;

// What the person's keyboard and mouse do to a form's window before any widget sees it.
class FormInput {
 public:
  explicit FormInput(FormWindow& window) : window_(window) {}

  // True when the event is spent. Not to be called once the form is gone.
  bool HandleWindowEvent(QEvent& event);

 private:
  bool HasTheUser() const;
  bool HandlePress(QMouseEvent& event);
  bool HandleKey(QKeyEvent& event);
  bool PlatformKey(const KeyPress& key);
  void ShowKeyboardFocus();
  bool PressEnter();
  bool PressMenuKey();
  bool IsFull(const TextBox& box, std::string_view typed) const;
  bool PressMnemonic(QChar letter);
  bool PressLabelMnemonic(QChar letter);
  bool OpenMenu(QChar letter);
  bool FilterCharacter(QKeyEvent& event);
  bool ClickButton(Button* button);

  Form& GetForm() const;

  FormWindow& window_;
  bool swallowRelease_ = false;
};

}  // namespace lantos::ui
