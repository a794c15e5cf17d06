#include "caretaker/exchange/CsvRows.h"

#include <fmt/format.h>

namespace lantos {

namespace {

// No row of a shop is as long; what is has lost a quote.
constexpr std::size_t kLongestRow = 4 * 1024 * 1024;

}  // namespace

void CsvRows::Feed(std::string_view piece) {
  for (const char c : piece) Take(c);
}

void CsvRows::Finish() {
  if (within_ == Within::Quotes) Refuse("ends within quotes");
  if (within_ != Within::Start || !row_.empty()) EndRow();
}

void CsvRows::Take(char c) {
  switch (within_) {
    case Within::Start:
      if (c == '"') {
        isQuoted_ = true;
        within_ = Within::Quotes;
        return;
      }
      within_ = Within::Plain;
      return TakePlain(c);
    case Within::Plain:
      return TakePlain(c);
    case Within::Quotes:
      if (c != '"') return Keep(c);
      within_ = Within::BehindQuote;
      return;
    case Within::BehindQuote:
      return TakeBehindQuote(c);
  }
}

void CsvRows::TakePlain(char c) {
  if (c == ',') return EndValue();
  if (c == '\n') return EndRow();
  if (c == '"') Refuse("has a quote inside a value that has none around it");
  Keep(c);
}

void CsvRows::TakeBehindQuote(char c) {
  if (c == '"') {
    within_ = Within::Quotes;
    return Keep(c);
  }
  if (c == ',') return EndValue();
  if (c == '\n') return EndRow();
  if (c != '\r') Refuse("has something behind the quote that ends a value");
}

void CsvRows::EndValue() {
  row_.push_back(isQuoted_ || !value_.empty() ? std::optional(value_) : std::nullopt);
  value_.clear();
  isQuoted_ = false;
  within_ = Within::Start;
}

void CsvRows::EndRow() {
  if (!isQuoted_ && value_.ends_with('\r')) value_.pop_back();
  EndValue();
  if (rows_ == 0) columns_ = row_.size();
  if (row_.size() != columns_) Refuse(fmt::format("has {} values where there are {} columns", row_.size(), columns_));
  ++rows_;
  length_ = 0;
  take_(std::move(row_));
  row_.clear();
}

void CsvRows::Keep(char c) {
  if (++length_ > kLongestRow) Refuse("has no end");
  value_ += c;
}

void CsvRows::Refuse(std::string_view what) const {
  throw CsvError(rows_ == 0 ? fmt::format("the heading {}", what) : fmt::format("the row {} {}", rows_, what));
}

}  // namespace lantos
