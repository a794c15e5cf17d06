#pragma once

#include <string_view>

#include "Fixture.h"

namespace lantos::test {

// A vendor's record at stated offsets.
inline Image VendorImage(std::string_view name, std::string_view city = "", std::string_view state = "") {
  return Image(204).Text(0, name).Text(97, city).Text(118, state);
}

}  // namespace lantos::test
