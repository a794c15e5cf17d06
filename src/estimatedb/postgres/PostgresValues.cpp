#include "estimatedb/postgres/PostgresValues.h"

#include <fmt/core.h>

#include <charconv>
#include <cmath>
#include <limits>

#include "estimatedb/engine/DatabaseError.h"
#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// The numbers of the server's own types, which never change.
enum Type : unsigned {
  kBoolean = 16,
  kInt8 = 20,
  kInt2 = 21,
  kInt4 = 23,
  kText = 25,
  kFloat4 = 700,
  kFloat8 = 701,
  kCharacter = 1042,
  kVarchar = 1043,
  kDate = 1082,
  kTimestamp = 1114,
  kTimestampWithZone = 1184,
  kNumeric = 1700,
};

template <class Number>
Number Parsed(std::string_view text) {
  Number number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

Value Numeric(std::string_view text) {
  const auto number = Parsed<double>(text);
  constexpr double kLargest = 9007199254740992.0;  // whole numbers up to here are exact
  if (std::abs(number) <= kLargest && number == std::floor(number)) return static_cast<std::int64_t>(number);
  return number;
}

Value DateIn(std::string_view text) {
  const std::optional<DaySerial> day = ParseIsoDate(text);
  return day ? Value(DateValue{*day}) : Value();
}

std::string Unicode(const std::string& text) {
  if (text.find('\0') != std::string::npos) {
    const std::string words =
        "A text with a character in it that no database server can hold (its number is 0) can't be stored. "
        "Nothing was stored.";
    throw DatabaseError(words, DatabaseErrorKind::Refused, 0, words);
  }
  return ToUtf8(text);
}

bool FitsLong(std::int64_t value) {
  using Limits = std::numeric_limits<std::int32_t>;
  return value >= Limits::min() && value <= Limits::max();
}

}  // namespace

// A text is left to the server to take for what its column is, a number isn't: behind "select ?" it would be a text.
void AddValue(PostgresRequest& request, const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    request.values.emplace_back(Unicode(*text));
    request.types.push_back(0);
  } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    request.values.emplace_back(fmt::format("{}", *whole));
    request.types.push_back(FitsLong(*whole) ? kInt4 : kInt8);
  } else if (const auto* number = std::get_if<double>(&value)) {
    request.values.emplace_back(fmt::format("{}", *number));
    request.types.push_back(kFloat8);
  } else if (const auto* date = std::get_if<DateValue>(&value)) {
    request.values.emplace_back(FormatIsoDate(date->day));
    request.types.push_back(kDate);
  } else {
    request.values.emplace_back();
    request.types.push_back(0);
  }
}

Value ValueOf(unsigned type, std::string_view text) {
  switch (type) {
    case kInt2:
    case kInt4:
    case kInt8:
      return Parsed<std::int64_t>(text);
    case kFloat4:
    case kFloat8:
      return Parsed<double>(text);
    case kNumeric:
      return Numeric(text);
    case kBoolean:
      return std::int64_t{text == "t"};
    case kDate:
    case kTimestamp:
    case kTimestampWithZone:
      return DateIn(text);
    default:
      return FromUtf8(text);
  }
}

ColumnType ColumnTypeOf(unsigned type) {
  switch (type) {
    case kDate:
    case kTimestamp:
    case kTimestampWithZone:
      return ColumnType::Date;
    case kVarchar:
    case kCharacter:
      return ColumnType::ShortText;
    case kText:
      return ColumnType::LongText;
    default:
      return ColumnType::Other;
  }
}

}  // namespace lantos
