#include "workorders/WorkorderTags.h"

#include <algorithm>

namespace lantos {

std::uint8_t WoTypeCode(std::string_view text) {
  const auto found = std::find(kWoTypeTexts.begin(), kWoTypeTexts.end(), ToLower(TrimView(text)));
  return found == kWoTypeTexts.end() ? std::uint8_t{0} : static_cast<std::uint8_t>(found - kWoTypeTexts.begin());
}

std::uint8_t WoStatusCode(std::string_view text, std::uint8_t otherwise) {
  const auto found = std::find(kWoStatusTexts.begin(), kWoStatusTexts.end(), text);
  return found == kWoStatusTexts.end() ? otherwise : static_cast<std::uint8_t>(found - kWoStatusTexts.begin());
}

}  // namespace lantos
