#pragma once

#include <array>
#include <string_view>

namespace lantos {

// By pricing_level of a customer and by place in the markups of the system record.
inline constexpr std::array<std::string_view, 4> kPriceLevelNames = {"Cost", "Wholesale", "Resale", "Retail"};
inline constexpr int kRetail = 3;

}  // namespace lantos
