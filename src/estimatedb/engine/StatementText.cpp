#include "estimatedb/engine/StatementText.h"

#include <fmt/core.h>

#include "estimatedb/engine/SqlWords.h"
#include "frame/Dates.h"

namespace lantos {

namespace {

std::string ForLog(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return QuotedText(*text);
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return fmt::format("{}", *whole);
  if (const auto* number = std::get_if<double>(&value)) return fmt::format("{}", *number);
  if (const auto* date = std::get_if<DateValue>(&value)) return FormatDate(date->day);
  return "null";
}

}  // namespace

std::string StatementForLog(std::string_view statement, const std::vector<Value>& parameters) {
  std::string text = fmt::format("Statement: {}", statement);
  std::string_view joint = "\nValues: ";
  for (const Value& value : parameters) {
    text += joint;
    text += ForLog(value);
    joint = ", ";
  }
  return text;
}

}  // namespace lantos
