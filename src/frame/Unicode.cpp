#include <array>
#include <cstdint>

#include "frame/Text.h"

namespace lantos {

namespace {

// 0x80 to 0x9F of the page. The five places it leaves open map to themselves.
constexpr std::array<std::uint16_t, 32> kMiddle = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t ToCodePoint(unsigned char c) { return c >= 0x80 && c < 0xA0 ? kMiddle[c - 0x80u] : c; }

char ToPage(char32_t point) {
  if (point < 0x80 || (point >= 0xA0 && point <= 0xFF)) return static_cast<char>(point);
  for (std::size_t i = 0; i < kMiddle.size(); ++i) {
    if (kMiddle[i] == point) return static_cast<char>(0x80 + i);
  }
  return '?';
}

constexpr char32_t kMalformed = 0xFFFFFFFF;

// One code point from position on; position moves behind what was read (one byte of malformed text).
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

}  // namespace

std::string ToUtf8(std::string_view ansi) {
  std::string result;
  result.reserve(ansi.size());
  for (char c : ansi) {
    const char32_t point = ToCodePoint(static_cast<unsigned char>(c));
    if (point < 0x80) {
      result += static_cast<char>(point);
    } else if (point < 0x800) {
      result += static_cast<char>(0xC0 | (point >> 6));
      result += static_cast<char>(0x80 | (point & 0x3F));
    } else {
      result += static_cast<char>(0xE0 | (point >> 12));
      result += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
      result += static_cast<char>(0x80 | (point & 0x3F));
    }
  }
  return result;
}

std::string FromUtf8(std::string_view utf8) {
  std::string result;
  result.reserve(utf8.size());
  for (std::size_t position = 0; position < utf8.size();) {
    const char32_t point = NextCodePoint(utf8, position);
    result += point == kMalformed ? '?' : ToPage(point);
  }
  return result;
}

}  // namespace lantos
