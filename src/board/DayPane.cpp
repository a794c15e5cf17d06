#include "board/DayPane.h"

#include "board/DayLines.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "ui/GlobalKeys.h"

namespace lantos {

namespace {

struct SortChoice {
  const char* caption;
  std::string_view order;
};
constexpr SortChoice kSortChoices[] = {{"Est#", "EstimateNumber ASC"},
                                       {"Cust", "CustomerNumber ASC"},
                                       {"Veh", "VehMake ASC, VehModel ASC, VehYear ASC"},
                                       {"Tech", "Mechanic ASC"}};

}  // namespace

DayPane::DayPane(ui::Form& form) : form_(form) {
  frameDayView.SetSpokenName("Day");
  frameDayView.Holds(frameDay, lblDayComments, cbShowLabor, cmdPrintDay);
  frameDay.Holds(List2);
  List2.SetFace(ui::FontFace::FixedPitch);
  for (std::size_t i = 0; i < optDaySortBy.size(); ++i) {
    optDaySortBy[i].SetContainer(frameDayView);
    optDaySortBy[i].SetCaption(kSortChoices[i].caption);
  }
  optDaySortBy[0].SetValue(true);
  frameDayView.SetVisible(false);
}

void DayPane::NameDay(DaySerial day) {
  frameDay.SetCaption(FormatLongDate(day));
  frameDay.SetTag(std::to_string(day));
}

std::string_view DayPane::SortOrder() const {
  std::size_t choice = 0;
  for (std::size_t i = 0; i < optDaySortBy.size(); ++i) {
    if (optDaySortBy[i].Value()) choice = i;
  }
  return kSortChoices[choice].order;
}

void DayPane::AddLines(const Estimate& estimate, const CustomerRecord* customer, std::string_view word,
                       const std::vector<std::string>& laborLines) {
  const std::int32_t number = estimate.EstimateNumber;
  List2.AddItem(MainLine(estimate, customer), number);
  if (std::string comments = CommentLine(estimate); !comments.empty()) List2.AddItem(std::move(comments), number);
  List2.AddItem(StatusLine(estimate, word), number);
  for (const std::string& line : laborLines) List2.AddItem(line, number);
}

void DayPane::RefreshMainLine(const Estimate& estimate, const CustomerRecord* customer) {
  const int row = List2.FindData(estimate.EstimateNumber);
  if (row >= 0) List2.SetList(row, MainLine(estimate, customer));
}

void DayPane::RefreshStatus(const Estimate& estimate, const std::string& word) {
  const int row = List2.FindData(estimate.EstimateNumber);
  if (row < 0) return;
  int statusRow = row + 1;
  if (statusRow < List2.ListCount() && List2.List(statusRow).starts_with(" -")) ++statusRow;
  if (statusRow >= List2.ListCount()) return;
  std::string line = StatusLine(estimate, word);
  if (List2.ListIndex() != row && List2.List(statusRow) == line) return;
  List2.RemoveItem(statusRow);
  // The new line is left without the estimate's number; a click on it still moves up to the main line.
  List2.InsertItem(statusRow, std::move(line));
}

}  // namespace lantos
