#include "board/frmMain.h"
#include "frame/Dates.h"
#include "frame/Text.h"

// The three views, and what a click in them selects.
namespace lantos {

void frmMain::ShowView(View view) {
  cmdWeekView.SetBold(view == View::Week);
  cmdDayView.SetBold(view == View::Day);
  cmdDetailView.SetBold(view == View::Detail);
  frameWeekView.SetVisible(view == View::Week);
  frameDayView.SetVisible(view == View::Day);
  frameDetailView.SetVisible(view == View::Detail);
}

void frmMain::WeekViewClick() {
  CheckDayRollover();
  ShowView(View::Week);
  std::string comments;
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    if (capacity_.DayComment[i].empty()) continue;
    if (!comments.empty()) comments += ", ";
    comments += frameWeek[i].Caption() + ": " + capacity_.DayComment[i];
  }
  lblWeekComment.SetCaption(comments);
}

void frmMain::DayViewClick() {
  CheckDayRollover();
  if (loading_) return;
  LoadWeek(static_cast<DaySerial>(Val(frameDay.Tag())));
  ShowView(View::Day);
  lblDayComments.SetCaption(capacity_.DayComment[selectedDayIndex_]);
}

void frmMain::DetailViewClick() {
  CheckDayRollover();
  ShowView(View::Detail);
  ShowEstimateDetail();
}

void frmMain::PanelClick(std::size_t weekday) {
  selectedDayIndex_ = weekday;
  const DaySerial date = PanelDate(weekday);
  MonthView1.SetValue(date);
  LoadWeek(date);
  lastSelectedDate_ = date;
}

// Makes a panel's day the one of calendar and day view, with nothing loaded anew.
void frmMain::SelectDay(std::size_t weekday) {
  selectedDayIndex_ = weekday;
  const DaySerial date = PanelDate(weekday);
  MonthView1.SetValue(date);
  frameDay.SetCaption(FormatLongDate(date));
  frameDay.SetTag(std::to_string(date));
}

void frmMain::WeekListClick(std::size_t weekday) {
  const ui::ListBox& list = List1[weekday];
  if (list.ListIndex() < 0) return;
  KeepUnsavedComments();
  database_.estimates.LoadEstimate(list.ItemData(list.ListIndex()));
  SelectDay(weekday);
  ShowEstimateDetail();
}

void frmMain::WeekListMouseUp(std::size_t weekday, ui::MouseButton button) {
  if (button != ui::MouseButton::Right) return;
  const ui::ListBox& list = List1[weekday];
  if (list.ListIndex() < 0) return PopupRefresh(button);
  selectedDayIndex_ = weekday;
  PopupStatusOf(list.ItemData(list.ListIndex()));
}

void frmMain::DayListClick() {
  const int row = List2.ListIndex();
  if (row < 0) return;
  if (row > 0 && List2.List(row).starts_with(' ')) {
    List2.SetListIndex(row - 1);  // fires this click again, up to the estimate's main line
    return;
  }
  KeepUnsavedComments();
  database_.estimates.LoadEstimate(List2.ItemData(row));
  ShowEstimateDetail();
}

void frmMain::DayListMouseUp(ui::MouseButton button) {
  if (button != ui::MouseButton::Right) return;
  if (List2.ListIndex() < 0) return PopupRefresh(button);
  PopupStatusOf(List2.ItemData(List2.ListIndex()));
}

void frmMain::PopupStatusOf(std::int32_t estimate) {
  if (estimate != Current().EstimateNumber) {
    database_.estimates.LoadEstimate(estimate);
    ShowEstimateDetail();
  }
  const std::int16_t oldStatus = Current().Status;
  ShowStatusPopup();
  RefreshStatusText(StatusText(Current()));
  LoadWeekIfCountChanged(oldStatus);
}

void frmMain::DetailMouseUp(ui::MouseButton button) {
  if (button != ui::MouseButton::Right || Current().EstimateNumber == 0) return;
  const std::int16_t oldStatus = Current().Status;
  ShowStatusPopup();
  RefreshDetailCaption("");
  if (LoadWeekIfCountChanged(oldStatus)) ShowEstimateDetail();
}

void frmMain::PopupRefresh(ui::MouseButton button) {
  if (button == ui::MouseButton::Right) shop_.desktop.PopupMenu(*this, *popupMenu_);
}

}  // namespace lantos
