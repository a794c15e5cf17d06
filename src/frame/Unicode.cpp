#include <algorithm>
#include <array>
#include <cstdint>

#include "frame/CodePoints.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// 0x80 to 0x9F of the page. The five places it leaves open map to themselves.
constexpr std::array<std::uint16_t, 32> kMiddle = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

char32_t OfPage(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 && byte < 0xA0 ? kMiddle[byte - 0x80u] : byte;
}

std::optional<char> InPage(char32_t point) {
  if (point < 0x80 || (point >= 0xA0 && point <= 0xFF)) return static_cast<char>(point);
  for (std::size_t i = 0; i < kMiddle.size(); ++i) {
    if (kMiddle[i] == point) return static_cast<char>(0x80 + i);
  }
  return std::nullopt;
}

char32_t NextCodePoint(std::string_view utf8, std::size_t& position) {
  const auto lead = static_cast<unsigned char>(utf8[position++]);
  if (lead < 0x80) return lead;
  const int more = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
  if (more == 0 || lead >= 0xF5) return kMalformed;
  char32_t point = lead & (0x3Fu >> more);
  std::size_t next = position;
  for (int i = 0; i < more; ++i, ++next) {
    if (next >= utf8.size() || (static_cast<unsigned char>(utf8[next]) & 0xC0u) != 0x80) return kMalformed;
    point = (point << 6) | (static_cast<unsigned char>(utf8[next]) & 0x3Fu);
  }
  const char32_t smallest = more == 3 ? 0x10000 : more == 2 ? 0x800 : 0x80;
  if (point < smallest || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) return kMalformed;
  position = next;
  return point;
}

void AppendUtf8(std::string& text, char32_t point) {
  const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
  const auto follow = [&](unsigned shift) { add(0x80 | ((point >> shift) & 0x3F)); };
  if (point < 0x80) return add(point);
  if (point < 0x800) {
    add(0xC0 | (point >> 6));
  } else {
    if (point < 0x10000) {
      add(0xE0 | (point >> 12));
    } else {
      add(0xF0 | (point >> 18));
      follow(12);
    }
    follow(6);
  }
  follow(0);
}

bool IsAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

std::string FromUtf8(std::string_view utf8) {
  if (IsAscii(utf8)) return std::string(utf8);
  std::string result;
  result.reserve(utf8.size());
  for (std::size_t position = 0; position < utf8.size();) {
    const char32_t point = NextCodePoint(utf8, position);
    result += point == kMalformed ? '?' : InPage(point).value_or('?');
  }
  return result;
}

}  // namespace lantos
