#include "board/BoardClicks.h"

#include "board/BoardMenus.h"

namespace lantos {

BoardClicks::BoardClicks(const BoardParts& parts, Board& board, BoardMenus& menus, StatusByHand& status,
                         const DayRollover& rollover)
    : parts_(parts), board_(board), menus_(menus), status_(status), rollover_(rollover) {
  WireCalendar();
  WirePanels();
  WireRightButton();
}

void BoardClicks::WireCalendar() {
  ui::MonthView& calendar = parts_.calendar;
  CommandPane& commands = parts_.commands;
  calendar.OnDateClick = [this, &commands](DaySerial day) {
    LoadClicked(day);
    commands.cmdWeekView.OnClick();
    commands.cmdWeekView.SetFocus();
  };
  calendar.OnDateDoubleClick = [this, &commands](DaySerial day) {
    if (!IsLoadedByClick(day)) LoadClicked(day);
    OpenClickedDay();
    commands.cmdDayView.SetFocus();
  };
}

void BoardClicks::WirePanels() {
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    ui::Frame& frame = parts_.week.frameWeek[i];
    frame.OnClick = [this, i] { PanelClick(i); };
    frame.OnDoubleClick = [this, i] {
      if (!IsLoadedByClick(parts_.state.PanelDate(i))) PanelClick(i);
      OpenClickedDay();
    };
    ui::ListBox& list = parts_.week.List1[i];
    list.OnClick = [this, i] { WeekListClick(i); };
    list.OnDoubleClick = [this, i] { WeekListDoubleClick(i); };
  }
  DayPane& day = parts_.day;
  day.List2.OnClick = [this] { DayListClick(); };
  day.List2.OnDoubleClick = [this] {
    if (parts_.day.List2.ListIndex() < 0) return;
    DayListClick();
    OpenDetail();
  };
  day.cbShowLabor.OnClick = [this] { parts_.commands.cmdDayView.OnClick(); };
  for (ui::OptionButton& option : day.optDaySortBy) {
    option.OnClick = [this] { board_.LoadWeek(parts_.state.dayOnShow); };
  }
}

void BoardClicks::WireRightButton() {
  const auto popup = [this](ui::MouseButton button) {
    if (button == ui::MouseButton::Right) menus_.PopupRefresh();
  };
  parts_.commands.frameCommands.OnMouseUp = popup;
  parts_.day.frameDayView.OnMouseUp = popup;
  parts_.week.frameWeekView.OnMouseUp = popup;
  parts_.day.lblDayComments.OnMouseUp = popup;
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    parts_.week.List1[i].OnMouseUp = [this, i](ui::MouseButton button) {
      if (button == ui::MouseButton::Right) WeekListRightClick(i);
    };
  }
  parts_.day.List2.OnMouseUp = [this](ui::MouseButton button) {
    if (button == ui::MouseButton::Right) DayListRightClick();
  };
  parts_.detail.frameDetailView.OnMouseUp = [this](ui::MouseButton button) {
    if (button == ui::MouseButton::Right) status_.PopupOnDetail();
  };
}

void BoardClicks::LoadClicked(DaySerial date) {
  loadedByClick_ = kNoDay;
  try {
    board_.LoadWeek(date);
  } catch (...) {
    // The calendar has the clicked day marked already.
    parts_.calendar.SetValue(parts_.state.dayOnShow);
    throw;
  }
  loadedByClick_ = date;
}

// The first of two clicks has loaded the day already, unless it failed.
bool BoardClicks::IsLoadedByClick(DaySerial date) const {
  return loadedByClick_ == date && parts_.state.dayOnShow == date;
}

void BoardClicks::OpenClickedDay() {
  loadedByClick_ = kNoDay;
  rollover_.CheckDayRollover();
  board_.ShowDayView(Board::DayData::AsLoaded);
}

void BoardClicks::PanelClick(std::size_t weekday) {
  const DaySerial date = parts_.state.PanelDate(weekday);
  LoadClicked(date);
  parts_.state.lastSelectedDate = date;
}

void BoardClicks::WeekListClick(std::size_t weekday) {
  const std::optional<std::int32_t> estimate = parts_.week.SelectedEstimate(weekday);
  if (!estimate || marking_) return;
  Choose(parts_.week.List1[weekday], *estimate);
  board_.SelectDay(weekday);
  parts_.detail.ShowEstimateDetail();
}

// No row looks selected that isn't the current estimate's: where that one stays, the clicked list goes back to it.
void BoardClicks::Choose(ui::ListBox& clicked, std::int32_t estimate) {
  try {
    board_.Choose(estimate);
  } catch (...) {
    marking_ = true;
    clicked.SetListIndex(clicked.FindData(parts_.database.estimates.CurrentEstimate.EstimateNumber));
    marking_ = false;
    throw;
  }
  for (ui::ListBox& list : parts_.week.List1) {
    if (list.ListIndex() >= 0 && list.ItemData(list.ListIndex()) != estimate) list.SetListIndex(-1);
  }
}

// The window system tells of double clicks beside the rows too: without a selected row they mean no estimate.
void BoardClicks::WeekListDoubleClick(std::size_t weekday) {
  if (!parts_.week.SelectedEstimate(weekday)) return;
  board_.ShowDayHeader(weekday);
  WeekListClick(weekday);
  OpenDetail();
}

// The list that had the focus is hidden now.
void BoardClicks::OpenDetail() {
  parts_.commands.cmdDetailView.OnClick();
  parts_.detail.listLabor.SetFocus();
}

void BoardClicks::DayListClick() {
  ui::ListBox& list = parts_.day.List2;
  const int row = list.ListIndex();
  if (row < 0 || marking_) return;
  if (row > 0 && list.List(row).starts_with(' ')) {
    list.SetListIndex(row - 1);  // fires this click again, up to the estimate's main line
    return;
  }
  Choose(list, list.ItemData(row));
  parts_.detail.ShowEstimateDetail();
}

void BoardClicks::WeekListRightClick(std::size_t weekday) {
  const std::optional<std::int32_t> estimate = parts_.week.SelectedEstimate(weekday);
  if (!estimate) return menus_.PopupRefresh();
  status_.PopupOf(*estimate);
}

void BoardClicks::DayListRightClick() {
  const ui::ListBox& list = parts_.day.List2;
  if (list.ListIndex() < 0) return menus_.PopupRefresh();
  status_.PopupOf(list.ItemData(list.ListIndex()));
}

}  // namespace lantos
