#include "frame/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "frame/Numbers.h"

namespace lantos {

std::string_view TrimView(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Trim(std::string_view text) { return std::string(TrimView(text)); }

std::string TrimNull(std::string_view text) { return Trim(text.substr(0, text.find('\0'))); }

std::string NulField(std::size_t n) { return std::string(n + 1, '\0'); }

std::string LeftJustify(std::string_view text, std::size_t width) {
  std::string result(text.substr(0, width));
  result.resize(width, ' ');
  return result;
}

std::string RightJustify(std::string_view text, std::size_t width) {
  if (text.size() >= width) return std::string(text);
  return std::string(width - text.size(), ' ') + std::string(text);
}

std::string Left(std::string_view text, std::size_t count) { return std::string(text.substr(0, count)); }

std::string Right(std::string_view text, std::size_t count) {
  return std::string(text.substr(text.size() > count ? text.size() - count : 0));
}

std::string Mid(std::string_view text, std::size_t position, std::size_t count) {
  if (position == 0 || position > text.size()) return {};
  return std::string(text.substr(position - 1, count));
}

namespace {

// Upper half of the page: where a small letter has its capital 32 places before it, as in Latin-1, and the three
// letters of the page's own block that have theirs 16 places before.
constexpr unsigned char Upper(unsigned char c) {
  if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 32);
  if (c >= 0xE0 && c != 0xF7 && c != 0xFF) return static_cast<unsigned char>(c - 32);
  if (c == 0x9A || c == 0x9C || c == 0x9E) return static_cast<unsigned char>(c - 16);
  if (c == 0xFF) return 0x9F;
  return c;
}

constexpr std::array<unsigned char, 256> MakeUpperTable() {
  std::array<unsigned char, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = Upper(static_cast<unsigned char>(i));
  return table;
}

constexpr std::array<unsigned char, 256> MakeLowerTable() {
  std::array<unsigned char, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<unsigned char>(i);
  for (std::size_t i = 0; i < table.size(); ++i) {
    const unsigned char upper = Upper(static_cast<unsigned char>(i));
    if (upper != i) table[upper] = static_cast<unsigned char>(i);
  }
  return table;
}

constexpr auto kUpper = MakeUpperTable();
constexpr auto kLower = MakeLowerTable();

template <class Fold>
bool ContainsFolded(std::string_view text, std::string_view needle, Fold fold) {
  if (needle.empty()) return true;
  if (needle.size() > text.size()) return false;
  for (std::size_t start = 0; start + needle.size() <= text.size(); ++start) {
    std::size_t i = 0;
    while (i < needle.size() && fold(text[start + i]) == fold(needle[i])) ++i;
    if (i == needle.size()) return true;
  }
  return false;
}

}  // namespace

char ToUpper(char c) { return static_cast<char>(kUpper[static_cast<unsigned char>(c)]); }
char ToLower(char c) { return static_cast<char>(kLower[static_cast<unsigned char>(c)]); }

std::string ToUpper(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = ToUpper(c);
  return result;
}

std::string ToLower(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = ToLower(c);
  return result;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (ToUpper(a[i]) != ToUpper(b[i])) return false;
  }
  return true;
}

bool Contains(std::string_view text, std::string_view needle) { return text.find(needle) != std::string_view::npos; }

bool ContainsIgnoringCase(std::string_view text, std::string_view needle) {
  return ContainsFolded(text, needle, [](char c) { return ToUpper(c); });
}

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// "&H1F" and "&O17", behind the prefix: as many digits as belong to the base, as a signed 32-bit number.
double ValWithBase(std::string_view digits, int base) {
  std::uint32_t value = 0;
  const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (end.ec != std::errc{}) return 0;
  return static_cast<double>(static_cast<std::int32_t>(value));
}

}  // namespace

double Val(std::string_view text) {
  std::string compact;  // blanks, tabs and line ends within a number don't count
  for (char c : text) {
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
    if (c == '\0') break;
    compact += c;
  }
  std::string_view rest = compact;
  if (rest.size() > 2 && rest[0] == '&') {
    if (ToUpper(rest[1]) == 'H') return ValWithBase(rest.substr(2), 16);
    if (ToUpper(rest[1]) == 'O') return ValWithBase(rest.substr(2), 8);
  }
  if (!rest.empty() && rest[0] == '+') rest.remove_prefix(1);
  for (char& c : compact) {
    if (c == 'd' || c == 'D') c = 'e';  // the other exponent mark
  }
  // from_chars also knows names such as "inf", which are no numbers here.
  const std::size_t start = !rest.empty() && rest[0] == '-' ? 1 : 0;
  if (rest.size() <= start || !(IsDigit(rest[start]) || rest[start] == '.')) return 0;
  double value = 0;
  const auto end = std::from_chars(rest.data(), rest.data() + rest.size(), value);
  if (end.ec == std::errc::result_out_of_range) {
    const std::string_view number = rest.substr(0, static_cast<std::size_t>(end.ptr - rest.data()));
    if (number.find("e-") != std::string_view::npos || number.find("E-") != std::string_view::npos) return 0;
    throw std::out_of_range("Overflow");
  }
  return end.ec == std::errc{} ? value : 0;
}

namespace {

// What stands around the digits: brackets, a sign in front or behind, a dollar sign. Each once, in any order.
struct Unsigned {
  std::string_view digits;
  bool negative = false;
};
Unsigned TakeSigns(std::string_view text) {
  Unsigned number{TrimView(text)};
  std::string_view& rest = number.digits;
  if (rest.size() >= 2 && rest.front() == '(' && rest.back() == ')') {
    number.negative = true;
    rest = TrimView(rest.substr(1, rest.size() - 2));
  }
  bool sawSign = number.negative;
  bool sawDollar = false;
  for (bool more = true; more && !rest.empty();) {
    more = false;
    if (!sawSign && (rest.front() == '-' || rest.front() == '+')) {
      number.negative = rest.front() == '-';
      sawSign = more = true;
    } else if (!sawDollar && rest.front() == '$') {
      sawDollar = more = true;
    }
    if (more) rest = TrimView(rest.substr(1));
  }
  if (!sawSign && !rest.empty() && (rest.back() == '-' || rest.back() == '+')) {
    number.negative = rest.back() == '-';
    rest = TrimView(rest.substr(0, rest.size() - 1));
  }
  return number;
}

// The digits and the point at the head of a text, which are taken off it, commas between them left out. Empty when
// there is no digit.
std::string TakeDigits(std::string_view& text) {
  std::string plain;
  bool sawPoint = false;
  bool sawDigit = false;
  std::size_t i = 0;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (IsDigit(c)) {
      sawDigit = true;
      plain += c;
    } else if (c == '.' && !sawPoint) {
      sawPoint = true;
      plain += c;
    } else if (c != ',' || sawPoint || !sawDigit) {
      break;
    }
  }
  text = text.substr(i);
  return sawDigit ? plain : std::string();
}

// "E" or "D" and its digits, as from_chars takes them; empty when the text is no exponent.
std::string PlainExponent(std::string_view text) {
  const char mark = ToUpper(text[0]);
  const std::size_t digits = text.size() > 1 && (text[1] == '-' || text[1] == '+') ? 2 : 1;
  if ((mark != 'E' && mark != 'D') || text.size() <= digits) return {};
  if (text.find_first_not_of("0123456789", digits) != std::string_view::npos) return {};
  return "e" + std::string(text[1] == '+' ? text.substr(2) : text.substr(1));
}

// The number in plain form, or empty when the text is none.
std::string PlainNumber(std::string_view text) {
  auto [rest, negative] = TakeSigns(text);
  std::string plain = TakeDigits(rest);
  if (plain.empty()) return {};
  if (!rest.empty()) {
    const std::string exponent = PlainExponent(rest);
    if (exponent.empty()) return {};
    plain += exponent;
  }
  return (negative ? "-" : "") + plain;
}

}  // namespace

bool IsNumeric(std::string_view text) {
  const std::string plain = PlainNumber(text);
  if (plain.empty()) return false;
  double value = 0;
  return std::from_chars(plain.data(), plain.data() + plain.size(), value).ec == std::errc{};
}

double ToNumber(std::string_view text) {
  const std::string plain = PlainNumber(text);
  double value = 0;
  if (plain.empty() || std::from_chars(plain.data(), plain.data() + plain.size(), value).ec != std::errc{}) {
    throw std::invalid_argument("Type mismatch: \"" + std::string(text) + "\" is not a number");
  }
  return value;
}

std::int32_t ToLongOrZero(std::string_view text) { return IsNumeric(text) ? RoundHalfEven(ToNumber(text)) : 0; }

bool ToBoolean(std::string_view text) {
  const std::string_view word = TrimView(text);
  if (EqualsIgnoringCase(word, "True")) return true;
  if (EqualsIgnoringCase(word, "False")) return false;
  if (IsNumeric(word)) return ToNumber(word) != 0;
  throw std::invalid_argument("Type mismatch: \"" + std::string(text) + "\" is neither True nor False");
}

std::string QuoteForSql(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    result += text[i];
    if (text[i] != '\'') continue;
    result += '\'';
    if (i + 1 < text.size() && text[i + 1] == '\'') ++i;
  }
  return result;
}

std::string CleanForFile(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c == '"') c = '|';
    if (c == '\'') c = '~';
  }
  return result;
}

void SplitKeyValue(std::string_view text, std::string& key, std::string& value) {
  const std::size_t equals = text.find('=');
  key = text.substr(0, equals);
  value = equals == std::string_view::npos ? "" : text.substr(equals + 1);
}

}  // namespace lantos
