#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "board/DayCapacity.h"
#include "estimatedb/EstimateDatabase.h"

namespace lantos {

// One estimate of a week as the board shows it.
struct BoardRow {
  Estimate estimate;
  std::vector<std::string> laborLines;  // with the blank line that closes them; empty where labor isn't wanted
};

// What one load of the board reads from the database: hours and estimates of seven days, Sunday first.
struct WeekData {
  DayCapacity capacity;
  std::array<std::vector<BoardRow>, kWeekdays> days;
};

inline constexpr DaySerial kNoDay = -1;

// How it is asked for: the estimates of each day, the totals and the labor of each estimate, or all of the week at once.
// The second is a fraction of the work where a week is read again and again; both give the same.
enum class WeekAsked { InParts, AtOnce };

// One read of the database for all statements. The estimates stand in the order wanted ("EstimateNumber ASC"); those of
// the day laborOf (kNoDay: none) with their labor. Throws DatabaseError.
WeekData FetchWeek(de& database, DaySerial sunday, std::string_view order, DaySerial laborOf,
                   WeekAsked asked = WeekAsked::InParts);
// Hours and labor of an estimate, which are stored nowhere but in its lines.
void ReadTotals(de& database, Estimate& estimate);
// The labor of an estimate as the day list shows it, with the blank line that closes it.
std::vector<std::string> FetchLaborLines(de& database, std::int32_t estimate);

}  // namespace lantos
