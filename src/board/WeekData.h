#pragma once

#include <array>
#include <set>
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

inline constexpr DaySerial kNoDay = -1;

// What one load of the board reads from the database: hours and estimates of seven days, Sunday first; and what was
// asked for.
struct WeekData {
  DayCapacity capacity{};
  std::array<std::vector<BoardRow>, kWeekdays> days{};
  DaySerial sunday = kNoDay;
  std::string order;
  DaySerial laborOf = kNoDay;
};

// How it is asked for: the estimates of each day, the totals and the labor of each estimate, or all of the week at
// once. The second is a fraction of the work where a week is read again and again; both give the same.
enum class WeekAsked { InParts, AtOnce };

// One read of the database for all statements. The estimates stand in the order wanted ("EstimateNumber ASC"); those of
// the day laborOf (kNoDay: none) with their labor. Throws DatabaseError.
WeekData FetchWeek(de& database, DaySerial sunday, std::string_view order, DaySerial laborOf,
                   WeekAsked asked = WeekAsked::InParts);
// Whether so many estimates of a week, of which more may have come or gone, are better read by themselves: from far
// away a few are a fraction of a week. Their place is known where the order is that of their numbers.
bool IsWorthRefreshing(de& database, const WeekData& week, std::size_t changed);
// The estimates of these numbers as they are now, in one read of the database; all else stays as it was read. Throws
// DatabaseError, and then nothing is changed.
void RefreshWeek(de& database, WeekData& week, const std::set<std::int32_t>& changed);
// Hours and labor of an estimate, which are stored nowhere but in its lines.
void ReadTotals(de& database, Estimate& estimate);
// The labor of an estimate as the day list shows it, with the blank line that closes it.
std::vector<std::string> FetchLaborLines(de& database, std::int32_t estimate);

}  // namespace lantos
