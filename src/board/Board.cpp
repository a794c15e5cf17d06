#include "board/Board.h"

#include "board/DayLines.h"
#include "board/KeptChoice.h"
#include "frame/Dates.h"
#include "ui/GlobalKeys.h"

namespace lantos {

namespace {

// What other programs change, without a word on the trail, is found no later than with the next change behind that.
constexpr std::chrono::seconds kRefreshedFor{30};

}  // namespace

void Board::LoadWeek(DaySerial date) {
  parts_.detail.KeepUnsavedComments();
  const DaySerial sunday = date - WeekdayIndex(date);
  // The customers come after the database: asking about a locked file takes as long as the person likes, and other
  // workstations couldn't write meanwhile.
  de& database = parts_.database.lantosData;
  WeekData data = FetchWeek(database, sunday, parts_.day.SortOrder(), parts_.day.cbShowLabor.Value() ? date : kNoDay,
                            database.Connection().IsFar() ? WeekAsked::AtOnce : WeekAsked::InParts);
  BoardState& state = parts_.state;
  state.capacity = data.capacity;
  state.sunday = sunday;
  state.dayOnShow = date;
  parts_.week.NameDays(state);
  parts_.week.ShowComments(state.capacity);
  parts_.day.NameDay(date);
  parts_.day.lblDayComments.SetCaption(state.CommentOnShow());
  parts_.detail.ClearDetail();
  const Customers::Reading reading(parts_.shop.records.customers);
  KeepRead(std::move(data));
  FillPanels(date);
  StandOn(date);
}

// The list holds the day of the last load, whatever day was chosen by a click since.
void Board::ShowWeekAnew(const Stale& stale) {
  BoardState& state = parts_.state;
  ReadAnew(stale);
  const Customers::Quietly quietly(parts_.shop.records.customers);
  const Customers::Reading reading(parts_.shop.records.customers);
  ReadCustomersOf(read_);
  std::vector<KeptChoice> choices;
  for (ui::ListBox& list : parts_.week.List1) choices.emplace_back(list);
  choices.emplace_back(parts_.day.List2);
  state.capacity = read_.capacity;
  FillPanels(state.currentDate);
  for (KeptChoice& choice : choices) choice.Restore();
  parts_.week.ShowComments(state.capacity);
  parts_.day.lblDayComments.SetCaption(state.CommentOnShow());
  parts_.day.frameDay.SetBackColor(state.ColorOf(static_cast<std::size_t>(WeekdayIndex(state.dayOnShow))));
  if (const auto weekday = state.PanelOf(parts_.hours.Day())) ShowDayHeader(*weekday);
}

void Board::ReadAnew(const Stale& stale) {
  const BoardState& state = parts_.state;
  de& database = parts_.database.lantosData;
  const std::string_view order = parts_.day.SortOrder();
  const DaySerial laborOf = parts_.day.cbShowLabor.Value() ? state.currentDate : kNoDay;
  const bool isOfIt = read_.sunday == state.sunday && read_.order == order && read_.laborOf == laborOf;
  if (isOfIt && !stale.isAll && std::chrono::steady_clock::now() - readAt_ < kRefreshedFor &&
      IsWorthRefreshing(database, read_, stale.estimates.size())) {
    return RefreshWeek(database, read_, stale.estimates);
  }
  KeepRead(FetchWeek(database, state.sunday, order, laborOf, WeekAsked::AtOnce));
}

void Board::KeepRead(WeekData week) {
  read_ = std::move(week);
  readAt_ = std::chrono::steady_clock::now();
}

// A file that can't be read just then leaves the lists as they are.
void Board::ReadCustomersOf(const WeekData& data) {
  for (const std::vector<BoardRow>& rows : data.days) {
    for (const BoardRow& row : rows) FindCustomerOf(row.estimate);
  }
}

void Board::FillPanels(DaySerial listed) {
  parts_.day.List2.Clear();
  for (std::size_t i = 0; i < kWeekdays; ++i) FillPanel(i, read_.days[i], parts_.state.PanelDate(i) == listed);
  if (!parts_.database.lantosData.Connection().IsFar()) read_ = {};  // as soon read again as kept
}

// New Estimate books on the day of the last load, so calendar, hours and mark tell of that day.
void Board::StandOn(DaySerial date) {
  parts_.state.currentDate = date;
  parts_.calendar.SetValue(date);
  parts_.week.MarkDay(parts_.state);
  parts_.commands.cmdNewEstimate.SetToolTip("Book an estimate on " + FormatDateWithWeekday(date));
  ShowDayHeader(static_cast<std::size_t>(WeekdayIndex(date)));
}

void Board::FillPanel(std::size_t weekday, const std::vector<BoardRow>& rows, bool isListed) {
  parts_.week.List1[weekday].Clear();
  for (const BoardRow& row : rows) {
    Estimate estimate = row.estimate;
    AddWeekLines(weekday, estimate);
    if (isListed) AddDayLines(estimate, row.laborLines);
  }
  ColorPanel(weekday);
}

void Board::ColorPanel(std::size_t weekday) {
  parts_.week.frameWeek[weekday].SetBackColor(parts_.state.ColorOf(weekday));
  parts_.week.ShowHours(parts_.state, weekday);
}

void Board::AddCurrent() {
  const auto weekday = parts_.state.PanelOf(Current().SchedDate);
  if (!weekday) return;
  // The list holds the day of the last load, whatever day was chosen by a click since.
  if (Current().SchedDate == parts_.state.currentDate) {
    AddDayLines(Current(), parts_.day.cbShowLabor.Value()
                               ? FetchLaborLines(parts_.database.lantosData, Current().EstimateNumber)
                               : std::vector<std::string>());
  }
  AddWeekLines(*weekday, Current());
  SelectDay(*weekday);
  ShowDayHeader(*weekday);
}

void Board::RefreshLines() {
  if (Current().EstimateNumber == 0) return;
  Estimate estimate = Current();
  ReadTotals(parts_.database.lantosData, estimate);
  const CustomerRecord* customer = FindCustomerOf(estimate);
  parts_.week.RefreshName(estimate.EstimateNumber, ListedName(customer));
  parts_.day.RefreshMainLine(estimate, customer);
}

const CustomerRecord* Board::FindCustomerOf(const Estimate& estimate) {
  return parts_.shop.records.customers.LookupCustomer(estimate.CustomerNumber);
}

// Counts before the day list has had a chance to read a past Scheduled estimate as a No-show: such an estimate is
// counted under Scheduled and listed under No-show. A scheduled estimate shows no word at all here.
void Board::AddWeekLines(std::size_t weekday, Estimate& estimate) {
  if (parts_.isShown(estimate.Status)) {
    const std::string word = estimate.Status == kScheduled ? "" : SettleStatus(estimate);
    parts_.week.AddLines(weekday, estimate.EstimateNumber, word, ListedName(FindCustomerOf(estimate)));
    if (modEstimates::CountsTowardDay(estimate.Status)) {
      parts_.state.capacity.ScheduledHours[weekday] += estimate.TotalHours;
    }
  }
  ui::SetListExtent(parts_.week.List1[weekday]);
}

void Board::AddDayLines(Estimate& estimate, const std::vector<std::string>& laborLines) {
  const CustomerRecord* customer = FindCustomerOf(estimate);
  const std::string word = SettleStatus(estimate);
  if (parts_.isShown(estimate.Status)) parts_.day.AddLines(estimate, customer, word, laborLines);
  ui::SetListExtent(parts_.day.List2);
}

std::string Board::SettleStatus(Estimate& estimate) {
  return parts_.database.estimates.StatusText(estimate.Status, estimate.SchedDate);
}

void Board::ShowDayHeader(std::size_t weekday) {
  const BoardState& state = parts_.state;
  const ui::Color color = state.ColorOf(weekday);
  parts_.hours.ShowHours(state, weekday);
  ColorPanel(weekday);
  if (state.IsOnShow(weekday)) parts_.day.frameDay.SetBackColor(color);
}

void Board::ShowHoursOfCurrent() {
  if (const auto weekday = parts_.state.PanelOf(Current().SchedDate)) ShowDayHeader(*weekday);
}

void Board::ShowView(View view) {
  parts_.commands.ShowView(view);
  parts_.week.frameWeekView.SetVisible(view == View::Week);
  parts_.day.frameDayView.SetVisible(view == View::Day);
  parts_.detail.frameDetailView.SetVisible(view == View::Detail);
}

void Board::ShowWeekView() {
  ShowView(View::Week);
  parts_.week.ShowComments(parts_.state.capacity);
}

void Board::ShowDayView(DayData data) {
  const BoardState& state = parts_.state;
  if (state.loading) return;
  if (data == DayData::Load) LoadWeek(state.dayOnShow);
  ShowView(View::Day);
  parts_.day.lblDayComments.SetCaption(state.CommentOnShow());
}

void Board::ShowDetailView() {
  ShowView(View::Detail);
  parts_.detail.ShowEstimateDetail();
}

void Board::GoOnWithTheDay() {
  const auto weekday = parts_.state.PanelOf(Current().SchedDate);
  if (parts_.day.frameDayView.Visible()) return parts_.day.List2.SetFocus();
  if (parts_.week.frameWeekView.Visible() && weekday) return parts_.week.List1[*weekday].SetFocus();
  parts_.commands.cmdDayView.SetFocus();
}

void Board::SelectDay(std::size_t weekday) {
  BoardState& state = parts_.state;
  const DaySerial date = state.PanelDate(weekday);
  state.dayOnShow = date;
  parts_.calendar.SetValue(date);
  parts_.day.NameDay(date);
}

void Board::Choose(std::int32_t estimate) {
  parts_.detail.KeepUnsavedComments();
  parts_.database.estimates.LoadEstimate(estimate);
}

void Board::RefreshStatusText() {
  const std::string word = SettleStatus(Current());
  parts_.detail.RefreshDetailCaption(word);
  parts_.day.RefreshStatus(Current(), word);
  parts_.week.RefreshStatus(Current(), word);
}

Board::WeekLoad Board::LoadWeekIfCountChanged(std::int16_t oldStatus) {
  if (modEstimates::CountsTowardDay(oldStatus) == modEstimates::CountsTowardDay(Current().Status)) {
    return WeekLoad::NotNeeded;
  }
  LoadWeek(Current().SchedDate);
  return WeekLoad::Done;
}

void Board::FollowStatus(std::int16_t oldStatus, Copy copy) {
  RefreshStatusText();
  if (copy == Copy::Made) {
    LoadWeek(Current().SchedDate);
  } else if (LoadWeekIfCountChanged(oldStatus) == WeekLoad::NotNeeded) {
    return;
  }
  parts_.detail.ShowEstimateDetail();
}

}  // namespace lantos
