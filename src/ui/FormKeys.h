#pragma once

#include "ui/Key.h"
#include "ui/RowKeys.h"
#include "ui/TabOrder.h"

namespace lantos::ui {

// What keys do in a form.
class FormKeys : public TabOrder {
 public:
  Button* DefaultButton() const { return defaultButton_; }
  Button* CancelButton() const { return cancelButton_; }

  // A key of the person. PreviewKey runs the form's key-down and the focused control's; what they leave uncleared is
  // the platform's. PressKey does the platform's part too: mnemonics, default and cancel button, tab, lists.
  void PreviewKey(KeyPress& key);
  void PressKey(KeyPress key);
  // A key in the rows, the options or the calendar that have the focus, as every desktop has it. True when it was
  // theirs.
  bool PressControlKey(const KeyPress& key);
  // The menu key: what the right button opens on the control that has the focus, or on what that lies on.
  void PressMenuKey();
  virtual void DoClose() = 0;                      // the window's close box
  virtual void DoMouseUp(MouseButton button) = 0;  // on the bare form

 protected:
  virtual void OnKeyDown(KeyPress&) {}
  void SetDefaultButton(Button& button) { defaultButton_ = &button; }
  void SetCancelButton(Button& button) { cancelButton_ = &button; }
  void Forget(Control& control) override;

 private:
  bool PressMnemonic(char letter);
  void PlatformKey(const KeyPress& key);
  void PressEnter();
  void PressSpace();
  bool PressTextKey(const KeyPress& key);
  virtual std::string& Clipboard() = 0;

  RowKeys rowKeys_;

  Button* defaultButton_ = nullptr;
  Button* cancelButton_ = nullptr;
};

}  // namespace lantos::ui
