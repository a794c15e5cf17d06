#include <algorithm>
#include <cstring>

#include "Target.h"

namespace lantos::fuzz {

namespace {

void SeeDate(DaySerial day) {
  See(FormatDate(day));
  See(FormatPanelDate(day));
  See(FormatDateWithWeekday(day));
  See(FormatLongDate(day));
  Require(WeekdayIndex(day) >= 0 && WeekdayIndex(day) < 7);
}

}  // namespace

void Try(std::string_view bytes) {
  if (const auto day = ParseDate(bytes, 2003)) {
    SeeDate(*day);
    Require(IsValid(FromSerial(*day)));
    Require(ParseDate(FormatDate(*day)) == *day);
    Require(FromFileDate(ToFileDate(*day)) == *day || ToFileDate(*day) <= kFileDateBase);
  }
  if (const auto day = ParseIsoDate(bytes)) Require(ParseIsoDate(FormatIsoDate(*day)) == *day);
  if (const auto time = ParseLocalTime(bytes)) See(FormatDateTime(*time));
  // A date as it stands in a damaged record.
  std::int32_t stored = 0;
  std::memcpy(&stored, bytes.data(), std::min(bytes.size(), sizeof(stored)));
  SeeDate(FromFileDate(stored));
}

}  // namespace lantos::fuzz
