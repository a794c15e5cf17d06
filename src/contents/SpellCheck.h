#pragma once

#include "ui/Desktop.h"

namespace lantos {

// The spelling is checked by an outside word processor that this platform doesn't have: says so.
inline void SpellCheckText(ui::Desktop& desktop) {
  desktop.Tell("Microsoft Word is required in order to check the spelling.", "Lantos");
}

}  // namespace lantos
