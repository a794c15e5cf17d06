#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace lantos {

// The pay periods by their code, as the employee's record and the pay records have it. Code 0 is none.
inline constexpr std::array<std::string_view, 9> kPayPeriodNames = {
    "None", "Weekly", "Two-weekly", "Twice a month", "Monthly", "Quarterly", "Half-yearly", "Yearly", "Daily"};

// Empty for a code that the table hasn't.
constexpr std::string_view PayPeriodName(std::size_t code) {
  return code < kPayPeriodNames.size() ? kPayPeriodNames[code] : std::string_view();
}

}  // namespace lantos
