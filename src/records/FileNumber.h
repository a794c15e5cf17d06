#pragma once

#include <stdexcept>
#include <string_view>

#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

// The number that a text of a file begins with, times a factor, as a whole number. A number beyond all bounds,
// as in a damaged file, is 0.
inline std::int32_t NumberInFile(std::string_view text, double factor = 1) {
  try {
    return RoundHalfEven(Val(text) * factor);
  } catch (const std::out_of_range&) {
    return 0;
  }
}

}  // namespace lantos
