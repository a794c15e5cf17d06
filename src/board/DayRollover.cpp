#include "board/DayRollover.h"

#include "frame/Dates.h"

namespace lantos {

void DayRollover::Start() { startedDate_ = FormatDate(shop_.environment.Today()); }

void DayRollover::CheckDayRollover() const {
  const std::string currentDate = FormatDate(shop_.environment.Today());
  if (currentDate == startedDate_) return;
  shop_.desktop.Tell(
      "NOTE: This application must be restarted each \r\n"
      "day in order to maintain data files integrity.\r\n\r\n"
      "Started date: " +
          startedDate_ +
          "\r\n"
          "Current date: " +
          currentDate +
          "\r\n\r\n"
          "Click OK to exit the application.",
      "Restart required.", ui::Icon::Information);
  shop_.desktop.EndProcess(0);
}

}  // namespace lantos
