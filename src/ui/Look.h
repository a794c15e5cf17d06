#pragma once

#include <cstdint>
#include <string>

namespace lantos::ui {

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Color&) const = default;
};
std::string ToHex(Color color);  // "#e0e0e0"

enum class FontFace { Normal, FixedPitch };
enum class Pointer { Normal, Hourglass };

// Twips, the unit of stored window places: 15 to a pixel at 96 dots an inch.
using Twips = float;
inline constexpr Twips kTwipsPerPixel = 15;

}  // namespace lantos::ui
