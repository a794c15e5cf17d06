#include "estimatedb/postgres/ForeseenAnswers.h"

#include <utility>

namespace lantos {

// What differs beyond it is told by the comparison that follows a hit.
std::size_t ForeseenAnswers::MarkOf(std::string_view statement, const std::vector<Value>& values) {
  std::size_t mark = std::hash<std::string_view>()(statement);
  for (const Value& value : values) {
    std::size_t one = value.index();
    if (const auto* whole = std::get_if<std::int64_t>(&value)) one += static_cast<std::size_t>(*whole);
    if (const auto* date = std::get_if<DateValue>(&value)) one += static_cast<std::size_t>(date->day);
    mark = mark * 31 + one;
  }
  return mark;
}

void ForeseenAnswers::Keep(std::string_view statement, std::vector<Value> values, Recordset answer) {
  const std::size_t mark = MarkOf(statement, values);
  const bool isAsBefore = last_ != nullptr && *last_ == statement;
  if (!isAsBefore) last_ = &*statements_.emplace(statement).first;
  answers_.emplace(mark, Answer{last_, std::move(values), std::move(answer)});
}

void ForeseenAnswers::Forget() {
  answers_.clear();
  statements_.clear();
  last_ = nullptr;
}

std::optional<Recordset> ForeseenAnswers::Take(std::string_view statement, const std::vector<Value>& values) {
  if (answers_.empty()) return std::nullopt;
  const auto [begin, end] = answers_.equal_range(MarkOf(statement, values));
  for (auto at = begin; at != end; ++at) {
    if (*at->second.statement != statement || at->second.values != values) continue;
    std::optional<Recordset> rows(std::move(at->second.rows));
    answers_.erase(at);
    return rows;
  }
  return std::nullopt;
}

}  // namespace lantos
