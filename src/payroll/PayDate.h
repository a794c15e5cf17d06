#pragma once

#include <optional>
#include <string>

#include "frame/Dates.h"

namespace lantos {

// The day of a payroll. Nothing for no date, and for what no calendar has.
inline std::optional<DaySerial> PayDay(FileDate date) {
  constexpr DaySerial kLastDay = 2958465;  // 12/31/9999
  const DaySerial day = FromFileDate(date);
  if (day < 1 || day > kLastDay) return std::nullopt;
  return day;
}

// "mm/dd/yyyy", empty without a day.
inline std::string TextOfPayDate(FileDate date) {
  const std::optional<DaySerial> day = PayDay(date);
  return day ? FormatDate(*day) : "";
}

}  // namespace lantos
