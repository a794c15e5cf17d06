#pragma once

#include <array>
#include <string>
#include <string_view>

#include "estimatedb/de.h"
#include "frame/Types.h"
#include "ui/Look.h"

namespace lantos {

inline constexpr std::size_t kWeekdays = 7;  // index 0 is Sunday

// What the board knows of the hours of the week on show.
struct DayCapacity {
  std::array<Hundredths, kWeekdays> AvailableHours{};
  std::array<std::int64_t, kWeekdays> ScheduledHours{};  // Hundredths; a sum of what any row may hold
  std::array<std::string, kWeekdays> DayComment;
  std::int32_t FudgeFactor = 0;  // percent

  // The standard hours of all seven days and the fudge factor. Throws DatabaseError when the table has no row.
  void LoadStandardHours(de& database);
  // A special day's hours replace the standard ones, and its description becomes the comment; a day that isn't
  // special keeps its hours and loses its comment.
  void LoadSpecialDay(de& database, DaySerial date, std::size_t weekday);
};

// How scheduled hours compare with available ones.
struct DayResult {
  ui::Color color;
  std::string_view word;
};
inline constexpr DayResult kDayClosed{{224, 224, 224}, "Closed"};
inline constexpr DayResult kDayClosedWithWork{{128, 128, 128}, "CLOSED!"};
inline constexpr DayResult kDayGood{{192, 255, 192}, "Good"};
inline constexpr DayResult kDayUnder{{255, 255, 192}, "Under"};
inline constexpr DayResult kDayOver{{255, 0, 0}, "Over"};

// The colour of a day; fudgeFactor is the tolerance in percent. Negative available hours aren't guarded.
ui::Color ClassifyDay(Hundredths available, std::int64_t scheduled, std::int32_t fudgeFactor);
// The word for a colour; "Unknown" for any that ClassifyDay doesn't give.
std::string_view DayStatusText(ui::Color color);

// The next open day after a date. A shop that is closed on all days, ten years long, throws std::runtime_error.
DaySerial NextBusinessDay(de& database, DaySerial date);

}  // namespace lantos
