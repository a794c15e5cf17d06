#include "board/HoursPane.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"

namespace lantos {

void HoursPane::ShowHours(const BoardState& state, std::size_t weekday) {
  const Hundredths available = state.capacity.AvailableHours[weekday];
  const std::int64_t scheduled = state.capacity.ScheduledHours[weekday];
  const ui::Color color = state.ColorOf(weekday);
  day_ = state.PanelDate(weekday);
  lblDate.SetCaption(FormatPanelDate(day_));
  lblAvail.SetCaption(FormatHundredths(available));
  lblSched.SetCaption(FormatHundredths(scheduled));
  lblDiff.SetCaption(FormatHundredths(scheduled - available));
  Frame1.SetBackColor(color);
  lblStatus.SetCaption(std::string(DayStatusText(color)));
}

}  // namespace lantos
