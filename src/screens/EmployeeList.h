#pragma once

#include <string>
#include <string_view>

#include "shop/Shop.h"
#include "ui/Controls.h"

namespace lantos {

inline constexpr std::string_view kNoEmployee = " None";

struct EmployeeListChoice {
  bool activeOnly = false;
  bool withNone = true;  // " None" as the first entry
};

// Fills a list or combo box with the employees, by number. A line is the name, left-justified in 31 characters, then
// the number in the format "000000", so the number stands from character 32 on; it is the item data too. False when
// no list could be built, which has been shown: the file can't be read, or nobody is left to be listed.
bool FillEmployeeList(Shop& shop, ui::RowControl& list, const EmployeeListChoice& choice);

// The row of an employee who isn't nobody. One who isn't listed, having left or since no list could be read, gets a
// row at the end, so that a screen doesn't lose who was chosen before.
int RowOfEmployee(Shop& shop, ui::RowControl& list, std::int32_t number);

// The name of a line, empty for " None".
std::string EmployeeNameOf(std::string_view line);
// The number of a line, 0 for " None".
std::int32_t EmployeeNumberOf(std::string_view line);

}  // namespace lantos
