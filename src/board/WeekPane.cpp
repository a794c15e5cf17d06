#include "board/WeekPane.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "ui/GlobalKeys.h"

namespace lantos {

WeekPane::WeekPane(ui::Form& form) : form_(form) {
  frameWeekView.Holds(lblWeekComment);
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    frameWeek[i].SetContainer(frameWeekView);
    frameWeek[i].Holds(List1[i]);
    frameWeek[i].SetToolTip("Double-click for the day view");
  }
}

void WeekPane::NameDays(const BoardState& state) {
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    const DaySerial day = state.PanelDate(i);
    frameWeek[i].SetTag(std::to_string(day));
    frameWeek[i].SetCaption(FormatPanelDate(day));
  }
}

void WeekPane::ShowComments(const DayCapacity& capacity) {
  std::string comments;
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    if (capacity.DayComment[i].empty()) continue;
    if (!comments.empty()) comments += ", ";
    comments += frameWeek[i].Caption() + ": " + capacity.DayComment[i];
  }
  lblWeekComment.SetCaption(comments);
}

void WeekPane::AddLines(std::size_t weekday, std::int32_t estimate, const std::string& word,
                        const std::string& customer) {
  List1[weekday].AddItem(FormatZeros(estimate, 6) + " " + word, estimate);
  List1[weekday].AddItem("  " + customer, estimate);
}

std::optional<std::int32_t> WeekPane::SelectedEstimate(std::size_t weekday) const {
  const ui::ListBox& list = List1[weekday];
  if (list.ListIndex() < 0) return std::nullopt;
  return list.ItemData(list.ListIndex());
}

void WeekPane::RefreshStatus(std::size_t weekday, const std::string& word) {
  ui::ListBox& list = List1[weekday];
  int row = list.ListIndex();
  if (row < 0) return;
  if (row > 0 && list.List(row).starts_with(' ')) --row;
  if (list.List(row).starts_with(' ')) return;
  list.SetList(row, Left(list.List(row), 7) + word);
}

}  // namespace lantos
