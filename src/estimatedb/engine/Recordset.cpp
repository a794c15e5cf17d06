#include "estimatedb/engine/Recordset.h"

#include <fmt/core.h>

#include <algorithm>
#include <limits>
#include <numeric>

#include "estimatedb/engine/Engine.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

bool IsNull(const Value& value) { return std::holds_alternative<std::monostate>(value); }

void Recordset::Close() { *this = Recordset(); }

const std::vector<std::string>& Recordset::Columns() const {
  static const std::vector<std::string> kNone;
  return columns_ ? columns_->Names() : kNone;
}

bool Recordset::HasColumn(std::string_view name) const { return columns_ && columns_->Find(name) != ColumnList::kNone; }

ColumnType Recordset::TypeOf(std::string_view column) const {
  const std::size_t index = ColumnIndex(column);
  return columns_->TypeOf(index);
}

std::size_t Recordset::ColumnIndex(std::string_view name) const {
  if (!columns_) throw DatabaseError(fmt::format("Column \"{}\" was asked of a recordset that isn't open.", name));
  const std::size_t index = columns_->Find(name);
  if (index == ColumnList::kNone) throw DatabaseError(fmt::format("There is no column \"{}\" in these rows.", name));
  return index;
}

const Value& Recordset::operator[](std::string_view column) const {
  const std::size_t index = ColumnIndex(column);
  if (Eof()) throw DatabaseError(fmt::format("There is no current row to take column \"{}\" from.", column));
  return Cell(rows_[current_], index);
}

bool Recordset::IsNull(std::string_view column) const { return lantos::IsNull((*this)[column]); }

std::int32_t Recordset::Long(std::string_view column) const {
  const Value& value = (*this)[column];
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(*whole, Limits::min(), Limits::max()));
  }
  if (const auto* number = std::get_if<double>(&value)) return RoundHalfEven(*number);
  if (const auto* text = std::get_if<std::string>(&value)) return ToLongOrZero(*text);
  if (const auto* date = std::get_if<DateValue>(&value)) return date->day;
  return 0;
}

double Recordset::Number(std::string_view column) const {
  const Value& value = (*this)[column];
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* text = std::get_if<std::string>(&value)) return IsNumeric(*text) ? ToNumber(*text) : 0;
  if (const auto* date = std::get_if<DateValue>(&value)) return date->day;
  return 0;
}

std::string Recordset::Text(std::string_view column) const {
  const Value& value = (*this)[column];
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return fmt::format("{}", *whole);
  if (const auto* number = std::get_if<double>(&value)) return fmt::format("{}", *number);
  if (const auto* date = std::get_if<DateValue>(&value)) return FormatDate(date->day);
  return {};
}

DaySerial Recordset::Date(std::string_view column, DaySerial whenNull) const {
  const Value& value = (*this)[column];
  if (const auto* date = std::get_if<DateValue>(&value)) return date->day;
  if (const auto* text = std::get_if<std::string>(&value)) return ParseDate(*text).value_or(whenNull);
  return whenNull;
}

namespace {

// Nulls, numbers, dates, texts: what can't be compared by value is kept apart by kind.
int RankOf(const Value& value) {
  constexpr int kRanks[] = {0, 1, 1, 3, 2};
  return kRanks[value.index()];
}

double NumberOf(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  return std::get<double>(value);
}

int CompareText(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const auto left = static_cast<unsigned char>(ToUpper(a[i]));
    const auto right = static_cast<unsigned char>(ToUpper(b[i]));
    if (left != right) return left < right ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

int Compare(const Value& a, const Value& b) {
  const int rank = RankOf(a);
  if (rank != RankOf(b)) return rank < RankOf(b) ? -1 : 1;
  if (rank == 0) return 0;
  if (rank == 3) return CompareText(std::get<std::string>(a), std::get<std::string>(b));
  const double left = rank == 2 ? std::get<DateValue>(a).day : NumberOf(a);
  const double right = rank == 2 ? std::get<DateValue>(b).day : NumberOf(b);
  return left == right ? 0 : left < right ? -1 : 1;
}

struct SortKey {
  std::string_view column;
  bool descending = false;
};

std::vector<SortKey> ParseOrder(std::string_view order) {
  std::vector<SortKey> keys;
  while (!order.empty()) {
    const std::size_t comma = std::min(order.find(','), order.size());
    const std::string_view part = TrimView(order.substr(0, comma));
    const std::size_t blank = std::min(part.find(' '), part.size());
    if (!part.empty())
      keys.push_back({part.substr(0, blank), EqualsIgnoringCase(TrimView(part.substr(blank)), "DESC")});
    order.remove_prefix(std::min(comma + 1, order.size()));
  }
  return keys;
}

}  // namespace

void Recordset::Sort(std::string_view order) {
  std::vector<std::pair<std::size_t, bool>> keys;
  for (const SortKey& key : ParseOrder(order)) keys.emplace_back(ColumnIndex(key.column), key.descending);
  std::stable_sort(rows_.begin(), rows_.end(), [&](std::uint32_t a, std::uint32_t b) {
    for (const auto& [column, descending] : keys) {
      const int result = Compare(Cell(a, column), Cell(b, column));
      if (result != 0) return descending ? result > 0 : result < 0;
    }
    return false;
  });
  current_ = 0;
}

void Recordset::Filter(const std::function<bool(const Recordset&)>& keep) {
  std::vector<std::uint32_t> kept;
  for (current_ = 0; !Eof(); ++current_) {
    if (keep(*this)) kept.push_back(rows_[current_]);
  }
  rows_ = std::move(kept);
  current_ = 0;
}

void Recordset::Open(std::vector<std::string> columns) {
  Open(std::make_shared<const ColumnList>(std::move(columns)), {});
}

void Recordset::AddRow(std::vector<Value> values) {
  if (!columns_ || values.empty() || values.size() != columns_->Count()) {
    throw DatabaseError(fmt::format("A row of {} values doesn't fit these columns.", values.size()));
  }
  rows_.push_back(static_cast<std::uint32_t>(cells_.size() / columns_->Count()));
  for (Value& value : values) cells_.push_back(std::move(value));
}

void Recordset::Open(std::shared_ptr<const ColumnList> columns, std::vector<Value> cells) {
  columns_ = std::move(columns);
  cells_ = std::move(cells);
  rows_.resize(columns_->Count() == 0 ? 0 : cells_.size() / columns_->Count());
  std::iota(rows_.begin(), rows_.end(), 0U);
  current_ = 0;
}

}  // namespace lantos
