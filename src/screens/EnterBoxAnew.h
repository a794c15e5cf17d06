#pragma once

#include "ui/Form.h"

namespace lantos {

// Puts the person into the box with its text marked, wherever the focus is: what is typed next takes its place.
void EnterBoxAnew(const ui::Form& form, ui::TextBox& box);

}  // namespace lantos
