#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "estimatedb/OldTables.h"

namespace lantos {

// What was told of a place in a text of comma-separated values that can't be understood.
class CsvError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Rows of comma-separated values, cut out of a text that comes piece by piece. A value in quotes may have commas, line
// ends and doubled quotes in it; one without quotes that is empty is nothing at all. Lines end in LF or CR LF.
class CsvRows {
 public:
  explicit CsvRows(std::function<void(OldRow&&)> take) : take_(std::move(take)) {}

  // Throws CsvError for what can't be understood, and for rows that haven't as many values as the first one.
  void Feed(std::string_view piece);
  // The last row may lack its line end. Throws CsvError where the text ends within quotes.
  void Finish();

 private:
  enum class Within { Start, Plain, Quotes, BehindQuote };

  void Take(char c);
  void TakePlain(char c);
  void TakeBehindQuote(char c);
  void EndValue();
  void EndRow();
  void Keep(char c);
  [[noreturn]] void Refuse(std::string_view what) const;

  std::function<void(OldRow&&)> take_;
  Within within_ = Within::Start;
  std::string value_;
  bool isQuoted_ = false;
  OldRow row_;
  std::size_t length_ = 0;  // of the row so far
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;  // ended, the first one included
};

}  // namespace lantos
