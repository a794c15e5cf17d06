#pragma once

#include <string_view>

namespace lantos {

// What the program puts in front of an estimate's comments when it becomes a work order or gets another day, with its
// number or day: "Workorder # 000123". Empty where the comments begin otherwise. A view into them.
std::string_view MarkIn(std::string_view comments);

}  // namespace lantos
