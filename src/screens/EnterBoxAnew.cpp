#include "screens/EnterBoxAnew.h"

namespace lantos {

// A box that has the focus already wouldn't be entered by it.
void EnterBoxAnew(const ui::Form& form, ui::TextBox& box) {
  if (box.HasFocus() && form.CancelButton() != nullptr) form.CancelButton()->SetFocus();
  box.SetFocus();
}

}  // namespace lantos
