#pragma once

#include <memory>
#include <vector>

#include "ui/Form.h"

namespace lantos::ui {

// Real timers for those of a form, for as long as it is loaded, shown or not.
std::vector<std::unique_ptr<ControlPeer>> MakeTimers(const Form& form);

}  // namespace lantos::ui
