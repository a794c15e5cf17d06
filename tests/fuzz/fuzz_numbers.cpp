#include <algorithm>

#include "Target.h"
#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos::fuzz {

namespace {

template <class Convert>
void MayBeNoNumber(Convert convert) {
  try {
    convert();
  } catch (const std::invalid_argument&) {
  }
}

}  // namespace

void Try(std::string_view bytes) {
  try {
    const double value = Val(bytes);
    See(FormatFixed(value, 2));
    RoundHalfEven(value);
  } catch (const std::out_of_range&) {
    // Larger than any number.
  }
  if (IsNumeric(bytes)) See(FormatFixed(ToNumber(bytes), 4));
  MayBeNoNumber([&] { ToNumber(bytes); });
  MayBeNoNumber([&] { ToBoolean(bytes); });
  See(FormatHundredths(ToLongOrZero(bytes)));
  See(FormatTenThousandths(ToLongOrZero(bytes)));
  See(TrimNull(bytes));
  const std::string quoted = QuoteForSql(bytes);
  Require(std::count(quoted.begin(), quoted.end(), '\'') % 2 == 0);
  Require(QuoteForSql(quoted) == quoted);
  See(CleanForFile(bytes));
  Require(LeftJustify(bytes, 20).size() == 20);
  std::string key;
  std::string rest;
  SplitKeyValue(bytes, key, rest);
  Require(key.size() + rest.size() <= bytes.size());
  Require(ContainsIgnoringCase(bytes, ToUpper(bytes)));
  // Where there is no form of a directory's name, which is shown as one character.
  const bool plain = WithReadableEscapes(bytes) == bytes;
  Require(!plain || FromUtf8(ToUtf8(bytes)).size() == bytes.size());
  See(FromUtf8(bytes));
}

}  // namespace lantos::fuzz
