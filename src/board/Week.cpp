#include "board/DayLines.h"
#include "board/frmMain.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "ui/GlobalKeys.h"

// LoadWeek and the lines it makes.
namespace lantos {

void frmMain::LoadWeek(DaySerial date) {
  KeepUnsavedComments();
  const DaySerial sunday = date - WeekdayIndex(date);
  DayCapacity capacity;
  std::array<std::vector<BoardRow>, kWeekdays> week;
  // One read of the database for all statements. The customers come after it: asking about a locked file takes as long
  // as the operator likes, and other workstations couldn't write meanwhile.
  Data().Connection().ReadTogether([&] {
    capacity.LoadStandardHours(Data());
    for (std::size_t i = 0; i < kWeekdays; ++i) {
      const DaySerial day = sunday + static_cast<DaySerial>(i);
      capacity.LoadSpecialDay(Data(), day, i);
      week[i] = FetchDay(day, day == date && cbShowLabor.Value());
    }
  });
  capacity_ = std::move(capacity);
  NameDays(sunday, date);
  ClearDetail();
  List2.Clear();
  {
    const Customers::Reading reading(shop_.records.customers);
    for (std::size_t i = 0; i < kWeekdays; ++i) FillPanel(i, week[i]);
  }
  currentDate_ = date;
  ShowDayHeader(static_cast<std::size_t>(date - sunday));
}

// The tags hold the dates; a day is on show when its tags are equal.
void frmMain::NameDays(DaySerial sunday, DaySerial dayOnShow) {
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    const DaySerial day = sunday + static_cast<DaySerial>(i);
    frameWeek[i].SetTag(std::to_string(day));
    frameWeek[i].SetCaption(FormatPanelDate(day));
  }
  frameDay.SetCaption(FormatLongDate(dayOnShow));
  frameDay.SetTag(std::to_string(dayOnShow));
}

DaySerial frmMain::PanelDate(std::size_t weekday) const {
  return static_cast<DaySerial>(Val(frameWeek[weekday].Tag()));
}

bool frmMain::IsDayOnShow(std::size_t weekday) const { return frameDay.Tag() == frameWeek[weekday].Tag(); }

void frmMain::SortByChoice(Recordset& estimates) const {
  constexpr std::string_view orders[] = {"EstimateNumber ASC", "CustomerNumber ASC",
                                         "VehMake ASC, VehModel ASC, VehYear ASC", "Mechanic ASC"};
  std::size_t choice = 0;
  for (std::size_t i = 0; i < optDaySortBy.size(); ++i) {
    if (optDaySortBy[i].Value()) choice = i;
  }
  estimates.Sort(orders[choice]);
}

std::vector<frmMain::BoardRow> frmMain::FetchDay(DaySerial date, bool withLabor) {
  std::vector<BoardRow> rows;
  Recordset& estimates = Data().GetEstimatesByDate(date);
  SortByChoice(estimates);
  for (; !estimates.Eof(); estimates.MoveNext()) {
    BoardRow& row = rows.emplace_back();
    modEstimates::ReadRow(estimates, row.estimate);
    row.estimate.Comments = Trim(row.estimate.Comments);
    Recordset& totals = Data().TotalsForEstimate(row.estimate.EstimateNumber);
    row.estimate.TotalHours = totals.Eof() ? 0 : totals.Long("TotalHours");
    row.estimate.TotalLabor = totals.Eof() ? 0 : totals.Long("TotalLabor");
    totals.Close();
    if (withLabor) row.laborLines = FetchLaborLines(row.estimate.EstimateNumber);
  }
  estimates.Close();
  return rows;
}

void frmMain::FillPanel(std::size_t weekday, std::vector<BoardRow>& rows) {
  List1[weekday].Clear();
  for (BoardRow& row : rows) {
    AddWeekLines(weekday, row.estimate);
    if (!IsDayOnShow(weekday)) continue;
    selectedDayIndex_ = weekday;
    AddDayLines(row.estimate, row.laborLines);
  }
  frameWeek[weekday].SetBackColor(
      ClassifyDay(capacity_.AvailableHours[weekday], capacity_.ScheduledHours[weekday], capacity_.FudgeFactor));
}

bool frmMain::IsShown(std::int16_t status) const {
  return status >= 0 && status < static_cast<int>(kStatusCount) &&
         showStatus_[static_cast<std::size_t>(status)]->Checked();
}

const CustomerRecord* frmMain::FindCustomerOf(const Estimate& estimate) {
  return shop_.records.customers.LookupCustomer(estimate.CustomerNumber);
}

// Counts before the day list has had a chance to read a past Scheduled estimate as a No-show: such an estimate is
// counted under Scheduled and listed under No-show.
void frmMain::AddWeekLines(std::size_t weekday, Estimate& estimate) {
  ui::ListBox& list = List1[weekday];
  if (IsShown(estimate.Status)) {
    const std::int32_t number = estimate.EstimateNumber;
    const bool hasWord = estimate.Status != kScheduled;
    list.AddItem(FormatZeros(number, 6) + " " + (hasWord ? StatusText(estimate) : ""), number);
    list.AddItem("  " + ListedName(FindCustomerOf(estimate)), number);
    if (modEstimates::CountsTowardDay(estimate.Status)) capacity_.ScheduledHours[weekday] += estimate.TotalHours;
  }
  ui::SetListExtent(list);
}

void frmMain::AddDayLines(Estimate& estimate, const std::vector<std::string>& laborLines) {
  const CustomerRecord* customer = FindCustomerOf(estimate);
  const std::string word = StatusText(estimate);
  if (IsShown(estimate.Status)) {
    const std::int32_t number = estimate.EstimateNumber;
    List2.AddItem(MainLine(estimate, customer), number);
    if (std::string comments = CommentLine(estimate); !comments.empty()) List2.AddItem(std::move(comments), number);
    List2.AddItem(StatusLine(estimate, word), number);
    for (const std::string& line : laborLines) List2.AddItem(line, number);
  }
  ui::SetListExtent(List2);
}

// As the day list shows them, with the blank line that closes them.
std::vector<std::string> frmMain::FetchLaborLines(std::int32_t estimate) {
  std::vector<std::string> lines;
  Recordset& labor = Data().LaborForEstimate(estimate);
  for (; !labor.Eof(); labor.MoveNext()) lines.push_back(LaborLine(labor));
  labor.Close();
  lines.push_back(" ");
  return lines;
}

void frmMain::ShowDayHeader(std::size_t weekday) {
  const Hundredths available = capacity_.AvailableHours[weekday];
  const std::int64_t scheduled = capacity_.ScheduledHours[weekday];
  lblDate.SetCaption(frameWeek[weekday].Caption());
  lblAvail.SetCaption(FormatHundredths(available));
  lblSched.SetCaption(FormatHundredths(scheduled));
  lblDiff.SetCaption(FormatHundredths(scheduled - available));
  const ui::Color color = ClassifyDay(available, scheduled, capacity_.FudgeFactor);
  Frame1.SetBackColor(color);
  lblStatus.SetCaption(std::string(DayStatusText(color)));
  frameWeek[weekday].SetBackColor(color);
  if (IsDayOnShow(weekday)) frameDay.SetBackColor(color);
}

void frmMain::RefreshCustomerIndex() {
  {
    ui::Hourglass hourglass(shop_.desktop);
    shop_.records.customers.RefreshCustomers();
  }
  shop_.desktop.Tell("Customer information refreshed.", "Refresh Complete.");
}

}  // namespace lantos
