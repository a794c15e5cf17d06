#include "board/WeekPane.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "ui/GlobalKeys.h"

namespace lantos {

namespace {

constexpr std::size_t kNumberWidth = 7;  // with the blank behind it
const std::string kNameIndent = "  ";
constexpr const char* kMark = "\xBB New estimates";
// A blank keeps the line's height, so that the lists stay where they are when the mark goes to another panel.
constexpr const char* kNoMark = " ";

}  // namespace

WeekPane::WeekPane(ui::Form& form) : form_(form) {
  frameWeekView.SetSpokenName("Week");
  frameWeekView.Holds(lblWeekComment);
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    frameWeek[i].SetContainer(frameWeekView);
    frameWeek[i].Holds(List1[i], lblWeekMark[i], lblWeekHours[i]);
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

void WeekPane::MarkDay(const BoardState& state) {
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    lblWeekMark[i].SetCaption(state.PanelDate(i) == state.currentDate ? kMark : kNoMark);
  }
}

void WeekPane::ShowHours(const BoardState& state, std::size_t weekday) {
  lblWeekHours[weekday].SetCaption("Scheduled " + FormatHundredths(state.capacity.ScheduledHours[weekday]) + "\nof " +
                                   FormatHundredths(state.capacity.AvailableHours[weekday]) + ": " +
                                   std::string(DayStatusText(state.ColorOf(weekday))));
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
  List1[weekday].AddItem(kNameIndent + customer, estimate);
}

std::optional<std::int32_t> WeekPane::SelectedEstimate(std::size_t weekday) const {
  const ui::ListBox& list = List1[weekday];
  if (list.ListIndex() < 0) return std::nullopt;
  return list.ItemData(list.ListIndex());
}

void WeekPane::RefreshName(std::int32_t estimate, const std::string& customer) {
  for (ui::ListBox& list : List1) {
    const int row = list.FindData(estimate);
    if (row >= 0 && row + 1 < list.ListCount()) list.SetList(row + 1, kNameIndent + customer);
  }
}

void WeekPane::RefreshStatus(const Estimate& estimate, const std::string& word) {
  for (ui::ListBox& list : List1) {
    const int row = list.FindData(estimate.EstimateNumber);
    if (row < 0) continue;
    const bool selected = list.ListIndex() == row || list.ListIndex() == row + 1;
    const std::string line =
        Left(list.List(row), kNumberWidth) + (selected || estimate.Status != kScheduled ? word : "");
    if (line != list.List(row)) list.SetList(row, line);
  }
}

}  // namespace lantos
