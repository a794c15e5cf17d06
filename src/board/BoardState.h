#pragma once

#include "board/DayCapacity.h"

namespace lantos {

// Which days are on the board, which of them is meant, and the hours of each. A weekday is a panel: 0 is Sunday's.
struct BoardState {
  bool loading = false;            // the window is coming up
  DaySerial sunday = 0;            // of the first panel
  DaySerial currentDate = 0;       // given to the last load: where a new estimate is booked
  DaySerial dayOnShow = 0;         // of the day view
  DaySerial lastSelectedDate = 0;  // of the panel clicked last
  std::size_t selectedDay = 0;     // the weekday that hours are added to
  DayCapacity capacity;

  DaySerial PanelDate(std::size_t weekday) const { return sunday + static_cast<DaySerial>(weekday); }
  bool IsOnShow(std::size_t weekday) const { return PanelDate(weekday) == dayOnShow; }
  ui::Color ColorOf(std::size_t weekday) const {
    return ClassifyDay(capacity.AvailableHours[weekday], capacity.ScheduledHours[weekday], capacity.FudgeFactor);
  }
};

}  // namespace lantos
