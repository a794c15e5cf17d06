#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/Types.h"

namespace lantos {

inline constexpr std::int32_t kFileDateBase = 693974;

FileDate ToFileDate(DaySerial day);
// A bare serial, as found in old records, passes through unchanged.
DaySerial FromFileDate(FileDate value);

struct CivilDate {
  int year = 1899;
  int month = 12;
  int day = 30;
  bool operator==(const CivilDate&) const = default;
};

DaySerial ToSerial(const CivilDate& date);
CivilDate FromSerial(DaySerial day);
bool IsValid(const CivilDate& date);  // years 100 to 9999
int WeekdayIndex(DaySerial day);      // 0 for Sunday

std::string FormatDate(DaySerial day);             // "mm/dd/yyyy"
std::string FormatPanelDate(DaySerial day);        // "ddd m/d": "Tue 9/30"
std::string FormatDateWithWeekday(DaySerial day);  // "ddd mm/dd/yyyy"
std::string FormatLongDate(DaySerial day);         // "Tuesday, September 30, 2003"
std::string FormatIsoDate(DaySerial day);          // "yyyy-mm-dd"

// A date as a person types it: month/day/year with "/", "-" or "." and a year of two or four digits (00 to 29 are
// 2000 to 2029), month/day of defaultYear, "yyyy-mm-dd", or with the month's name. Empty when it is no date.
std::optional<DaySerial> ParseDate(std::string_view text, int defaultYear = 0);
// "yyyy-mm-dd", with or without a time behind it.
std::optional<DaySerial> ParseIsoDate(std::string_view text);

}  // namespace lantos
