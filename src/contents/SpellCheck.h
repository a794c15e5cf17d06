#pragma once

#include "ui/Form.h"

namespace lantos {

// The spelling is checked by an outside word processor that this platform doesn't have: says so.
inline void SpellCheckText(ui::Form& form) {
  form.GetDesktop().Tell("Microsoft Word is required in order to check the spelling.", form.Caption());
}

}  // namespace lantos
