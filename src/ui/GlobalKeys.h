#pragma once

#include <functional>

#include "ui/Form.h"

namespace lantos::ui {

// Run first by every form's key-down event. Ctrl+Alt+P prints the form as a screen image, Ctrl+Alt+T switches to the
// main application, Ctrl+Alt+V opens the vendor list (a form whose name begins with "frmVendor" beeps instead). True
// when it handled the key, which is then cleared.
class GlobalKeys {
 public:
  explicit GlobalKeys(Desktop& desktop) : desktop_(desktop) {}
  bool HandleGlobalKeys(KeyPress& key, Form& form);
  // Without a vendor list the key is left alone.
  std::function<void()> openVendorList;

 private:
  Desktop& desktop_;
};

// Gives the list a scroll bar for its longest line, two blanks added.
void SetListExtent(ListBox& list);
// size := fontFactor × 2 + 6 for every control of the form.
void ApplyFontFactor(Form& form, int fontFactor);

}  // namespace lantos::ui
