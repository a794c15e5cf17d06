#include "frame/PathText.h"

#include <fmt/format.h>

#include "frame/CodePoints.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr char kOpen = '\x81';
constexpr char kClose = '\x9D';
constexpr std::size_t kMostDigits = 6;
constexpr char32_t kFirstEscaped = 0x80;  // what ASCII has is never written so: neither NUL, a separator nor a dot
constexpr char32_t kByteBase = 0xDC00;
constexpr char32_t kFirstByte = kByteBase + 0x80;
constexpr char32_t kLastByte = kByteBase + 0xFF;
constexpr char32_t kReplacement = 0xFFFD;

bool IsByte(char32_t point) { return point >= kFirstByte && point <= kLastByte; }

bool IsUtf8(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    if (NextCodePoint(text, position) == kMalformed) return false;
  }
  return true;
}

bool HasEscape(std::string_view text) { return text.find(kOpen) != std::string_view::npos; }

// Each form of a text as take makes it, each other character as keep does.
template <class Take, class Keep>
std::string Replaced(std::string_view text, Take take, Keep keep) {
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    if (const auto point = NextEscape(text, position)) {
      take(result, *point);
    } else {
      keep(result, text[position++]);
    }
  }
  return result;
}

// Bytes of the platform as text of the page; in its form what the page hasn't got and what isn't to stand as it is.
template <class HasForm>
std::string InThePage(std::string_view bytes, HasForm hasForm) {
  std::string text;
  for (std::size_t position = 0; position < bytes.size();) {
    const auto byte = static_cast<unsigned char>(bytes[position]);
    const char32_t point = NextCodePoint(bytes, position);
    const std::optional<char> known = point == kMalformed ? std::nullopt : InPage(point);
    if (known && !hasForm(*known)) {
      text += *known;
    } else {
      text += fmt::format("{}{:X}{}", kOpen, static_cast<std::uint32_t>(point == kMalformed ? kByteBase + byte : point),
                          kClose);
    }
  }
  return text;
}

void AppendReadable(std::string& text, char32_t point) { AppendUtf8(text, IsByte(point) ? kReplacement : point); }

}  // namespace

std::optional<char32_t> NextEscape(std::string_view text, std::size_t& position) {
  if (text[position] != kOpen) return std::nullopt;
  const std::size_t end = text.find(kClose, position);
  if (end == std::string_view::npos || end == position + 1 || end > position + 1 + kMostDigits) return std::nullopt;
  char32_t point = 0;
  for (const char c : text.substr(position + 1, end - position - 1)) {
    const bool isDigit = c >= '0' && c <= '9';
    if (!isDigit && (c < 'A' || c > 'F')) return std::nullopt;
    point = point * 16 + static_cast<char32_t>(isDigit ? c - '0' : c - 'A' + 10);
  }
  if (point < kFirstEscaped || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF && !IsByte(point)))
    return std::nullopt;
  position = end + 1;
  return point;
}

std::string TextOfPath(const std::filesystem::path& path) {
  std::string text = InThePage(path.native(), [](char c) { return c == kOpen || c == kClose; });
  // Text of the page that could be taken for UTF-8 can no longer be once all but ASCII has its form.
  if (IsUtf8(text) && !IsAscii(text)) text = InThePage(path.native(), [](char c) { return !IsAscii({&c, 1}); });
  return text;
}

std::string PathOfText(std::string_view text) {
  if (IsUtf8(text)) return std::string(text);
  return Replaced(
      text,
      [](std::string& result, char32_t point) {
        if (IsByte(point)) {
          result += static_cast<char>(point - kByteBase);
        } else {
          AppendUtf8(result, point);
        }
      },
      [](std::string& result, char c) { AppendUtf8(result, OfPage(c)); });
}

std::string TextOfPlatform(std::string_view text) { return IsUtf8(text) ? TextOfPath(text) : std::string(text); }

std::string StoredPathText(std::string_view text) {
  if (!HasEscape(text)) return std::string(text);
  std::string path = PathOfText(text);
  return IsUtf8(path) ? path : std::string(text);
}

std::string WithReadableEscapes(std::string_view text) {
  if (!HasEscape(text)) return std::string(text);
  return Replaced(text, AppendReadable, [](std::string& result, char c) { result += c; });
}

std::string ToUtf8(std::string_view ansi) {
  if (IsAscii(ansi)) return std::string(ansi);
  std::string result;
  result.reserve(ansi.size());
  for (std::size_t position = 0; position < ansi.size();) {
    if (const auto point = NextEscape(ansi, position)) {
      AppendReadable(result, *point);
    } else {
      AppendUtf8(result, OfPage(ansi[position++]));
    }
  }
  return result;
}

}  // namespace lantos
