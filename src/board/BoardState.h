#pragma once

#include <optional>

#include "board/DayCapacity.h"
#include "frame/Dates.h"

namespace lantos {

// Which days are on the board, which of them is meant, and the hours of each. A weekday is a panel: 0 is Sunday's.
struct BoardState {
  bool loading = false;            // the window is coming up
  DaySerial sunday = 0;            // of the first panel
  DaySerial currentDate = 0;       // given to the last load: where a new estimate is booked
  DaySerial dayOnShow = 0;         // of the day view
  DaySerial lastSelectedDate = 0;  // of the panel clicked last
  DayCapacity capacity;

  DaySerial PanelDate(std::size_t weekday) const { return sunday + static_cast<DaySerial>(weekday); }
  // The panel of a date; none for a day of another week.
  std::optional<std::size_t> PanelOf(DaySerial date) const {
    if (date < sunday || date >= PanelDate(kWeekdays)) return std::nullopt;
    return static_cast<std::size_t>(date - sunday);
  }
  bool IsOnShow(std::size_t weekday) const { return PanelDate(weekday) == dayOnShow; }
  // The description of the special day that the day view is on.
  const std::string& CommentOnShow() const {
    return capacity.DayComment[static_cast<std::size_t>(WeekdayIndex(dayOnShow))];
  }
  ui::Color ColorOf(std::size_t weekday) const {
    return ClassifyDay(capacity.AvailableHours[weekday], capacity.ScheduledHours[weekday], capacity.FudgeFactor);
  }
};

}  // namespace lantos
