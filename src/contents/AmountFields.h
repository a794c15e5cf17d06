#pragma once

#include <initializer_list>
#include <string>

#include "frame/Numbers.h"
#include "frame/Text.h"
#include "ui/Form.h"

namespace lantos {

// "12.5" in a field is 1250, to the nearest.
inline Cents CentsIn(const ui::TextBox& box) { return RoundHalfEven(Val(box.Text()) * 100); }

// Leaving the field brings it into the form "0.00".
inline void FormatAmount(ui::TextBox& box) { box.SetText(FormatFixed(Val(box.Text()), 2)); }

// Enter goes on to the next of these that can be used.
void EnterMovesThrough(std::initializer_list<ui::Control*> fields);

struct RequiredField {
  ui::TextBox* box;
  const char* message;
};
// Tells of the first field that is empty, in a box with the form's caption, and goes there. True when none is.
bool HasRequired(ui::Form& form, std::initializer_list<RequiredField> fields);

}  // namespace lantos
