#pragma once

#include <array>
#include <string_view>

#include "frame/Text.h"

namespace lantos::bench {

// How often a text occurs in many bytes, in either case: one pass over them.
inline std::size_t CountCaseless(std::string_view bytes, std::string_view needle) {
  std::array<unsigned char, 256> fold;
  for (std::size_t i = 0; i < fold.size(); ++i) {
    fold[i] = static_cast<unsigned char>(ToUpper(static_cast<char>(static_cast<unsigned char>(i))));
  }
  const auto at = [&](std::string_view text, std::size_t i) { return fold[static_cast<unsigned char>(text[i])]; };
  const unsigned char first = at(needle, 0);
  std::size_t found = 0;
  for (std::size_t i = 0; i + needle.size() <= bytes.size(); ++i) {
    if (at(bytes, i) != first) continue;
    std::size_t same = 1;
    while (same < needle.size() && at(bytes, i + same) == at(needle, same)) ++same;
    found += same == needle.size();
  }
  return found;
}

}  // namespace lantos::bench
