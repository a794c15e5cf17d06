#pragma once

#include <initializer_list>
#include <string>

#include "frame/Numbers.h"
#include "frame/Text.h"
#include "ui/Form.h"

namespace lantos {

// What doesn't fit ends the event: std::overflow_error.
std::int32_t Product(std::int32_t a, std::int32_t b);
std::int32_t Sum(std::int32_t a, std::int32_t b);
// A field times 100, without the noise that the product has behind its fifteenth digit.
double HundredfoldOf(const ui::TextBox& box);
// "12.5" in a field is 1250, to the nearest.
inline Cents CentsIn(const ui::TextBox& box) { return WholeOrOverflow(HundredfoldOf(box)); }
// A quantity that was left empty, or comes to nothing, is 1; what is no number stays.
void AtLeastOne(ui::TextBox& quantity);

// Enter goes on to the next of these that can be used.
void EnterMovesThrough(std::initializer_list<ui::Control*> fields);

struct RequiredField {
  ui::TextBox* box;
  const char* message;
};
// Tells of the first field that is empty, in a box with the form's caption, and goes there. True when none is.
bool HasRequired(ui::Form& form, std::initializer_list<RequiredField> fields);

}  // namespace lantos
