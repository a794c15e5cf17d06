#pragma once

#include <string>
#include <string_view>

#include "ui/Control.h"

namespace lantos::ui {

// What a screen reader says of a control: the name that the program gives it, its own caption, the label that stands
// before it, the frame that it lies in, its tool tip, or what the form is called; the first of these that there is,
// without mnemonic and keys.
std::string SpokenNameOf(const Control& control);

// The label that the design of a form has for a field and the program knows nothing of; empty when there is none. The
// table is made from the designs by make_field_labels.py.
std::string_view DesignedLabelOf(std::string_view form, std::string_view control);

}  // namespace lantos::ui
