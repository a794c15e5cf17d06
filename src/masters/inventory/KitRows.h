#pragma once

#include <string>
#include <string_view>

#include "frame/Text.h"

namespace lantos {

// How the components of a kit stand in a list, and the heading over it. A quantity of more than five characters pushes
// the rest aside.
inline constexpr const char* kKitHeading = "  Qty   Part Number          Description";
inline std::string KitRowText(std::string_view quantity, std::string_view partNumber, std::string_view description) {
  return RightJustify(quantity, 5) + "   " + LeftJustify(partNumber, 21) + std::string(description);
}

}  // namespace lantos
