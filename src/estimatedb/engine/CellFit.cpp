#include "estimatedb/engine/CellFit.h"

#include <fmt/core.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::size_t kShownAtMost = 40;
constexpr double kExactUpTo = 9007199254740992.0;  // whole numbers up to here have a double each

template <class Number>
std::optional<Number> Parsed(const std::string& text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

[[noreturn]] void Refuse(const Cell& cell, std::string_view what) {
  throw UnfitCell(fmt::format("holds {}, which {}", Shown(cell), what));
}

Cell FittedNumber(const Cell& cell) {
  if (std::holds_alternative<std::int64_t>(cell)) return cell;
  std::optional<double> number;
  if (const auto* text = std::get_if<std::string>(&cell)) {
    if (const auto whole = Parsed<std::int64_t>(*text)) return *whole;
    number = Parsed<double>(*text);
  } else {
    number = std::get<double>(cell);
  }
  if (!number || !std::isfinite(*number)) Refuse(cell, "isn't a number");
  if (std::abs(*number) <= kExactUpTo && *number == std::floor(*number)) return static_cast<std::int64_t>(*number);
  return *number;
}

template <class Whole>
Cell FittedWhole(const Cell& cell) {
  const Cell number = FittedNumber(cell);
  const auto* whole = std::get_if<std::int64_t>(&number);
  if (whole == nullptr) Refuse(cell, "isn't a whole number");
  if (*whole < std::numeric_limits<Whole>::min() || *whole > std::numeric_limits<Whole>::max()) {
    Refuse(cell, "is too large a number");
  }
  return number;
}

Cell FittedDate(const Cell& cell) {
  const auto* text = std::get_if<std::string>(&cell);
  const std::optional<DaySerial> day = text == nullptr ? std::nullopt : ParseIsoDate(*text);
  return day ? Cell(FormatIsoDate(*day)) : Cell();
}

Cell FittedText(const Cell& cell) {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return fmt::format("{}", *whole);
  if (const auto* number = std::get_if<double>(&cell)) return fmt::format("{}", *number);
  const auto& text = std::get<std::string>(cell);
  if (text.find('\0') != std::string::npos) {
    Refuse(cell, "has a character in it that no database server can hold (its number is 0)");
  }
  return text;
}

}  // namespace

std::string Shown(const Cell& cell) {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return fmt::format("{}", *whole);
  if (const auto* number = std::get_if<double>(&cell)) return fmt::format("{}", *number);
  const auto* text = std::get_if<std::string>(&cell);
  if (text == nullptr) return "nothing";
  std::string shown = FromUtf8(*text);
  for (char& each : shown) {
    if (static_cast<unsigned char>(each) < ' ') each = ' ';
  }
  return fmt::format("\"{}\"", shown.size() > kShownAtMost ? shown.substr(0, kShownAtMost) + "..." : shown);
}

Cell Fitted(const Cell& cell, CellKind kind) {
  if (std::holds_alternative<std::monostate>(cell)) return cell;
  switch (kind) {
    case CellKind::Short:
      return FittedWhole<std::int16_t>(cell);
    case CellKind::Long:
      return FittedWhole<std::int32_t>(cell);
    case CellKind::Number:
      return FittedNumber(cell);
    case CellKind::Date:
      return FittedDate(cell);
    default:
      return FittedText(cell);
  }
}

}  // namespace lantos
