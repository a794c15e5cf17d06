#include "board/DetailLines.h"
#include "board/frmMain.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "ui/GlobalKeys.h"

// LoadWeek and the lines it makes.
namespace lantos {

namespace {

constexpr std::string_view kUnknownCustomer = "CUSTOMER,UNKNOWN";
constexpr std::size_t kNameWidth = 32;
constexpr std::size_t kPhonesWidth = 40;
constexpr std::size_t kVehicleWidth = 32;
constexpr std::size_t kHoursWidth = 7;
constexpr std::string_view kStatusLineStart = "       Created on ";

std::string Phones(const CustomerRecord& customer) {
  std::string phones;
  const std::string work = customer.Get(customer::WorkPhone);
  const std::string extension = customer.Get(customer::WorkExt);
  if (!work.empty()) phones = "W:" + work + (extension.empty() ? "" : "x" + extension);
  const std::string home = customer.Get(customer::HomePhone);
  if (!home.empty()) phones = Trim(phones) + " H:" + home;
  const std::string other = customer.Get(customer::OtherPhone);
  if (!other.empty()) phones = Trim(phones) + " O:" + other;
  return phones;
}

}  // namespace

void frmMain::LoadWeek(DaySerial date) {
  KeepTypedComments();
  const Estimate kept = Current();
  const auto weekday = static_cast<std::size_t>(WeekdayIndex(date));
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    const DaySerial panelDate = date - static_cast<DaySerial>(weekday) + static_cast<DaySerial>(i);
    frameWeek[i].SetTag(std::to_string(panelDate));
    frameWeek[i].SetCaption(FormatPanelDate(panelDate));
  }
  frameDay.SetCaption(FormatLongDate(date));
  frameDay.SetTag(std::to_string(date));
  std::array<std::vector<BoardRow>, kWeekdays> week;
  // One read of the database for all statements. The customers come after it: asking about a locked file takes as long
  // as the operator likes, and other workstations couldn't write meanwhile.
  Data().Connection().ReadTogether([&] {
    capacity_.LoadStandardHours(Data());
    for (std::size_t i = 0; i < kWeekdays; ++i) capacity_.LoadSpecialDay(Data(), PanelDate(i), i);
    for (std::size_t i = 0; i < kWeekdays; ++i) week[i] = FetchDay(i);
  });
  ClearDetail();
  List2.Clear();
  {
    const Customers::Reading reading(shop_.records.customers);
    for (std::size_t i = 0; i < kWeekdays; ++i) FillPanel(i, week[i]);
  }
  currentDate_ = date;
  ShowDayHeader(weekday);
  Current() = kept;
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

std::vector<frmMain::BoardRow> frmMain::FetchDay(std::size_t weekday) {
  std::vector<BoardRow> rows;
  Recordset& estimates = Data().GetEstimatesByDate(PanelDate(weekday));
  SortByChoice(estimates);
  const bool withLabor = cbShowLabor.Value() && IsDayOnShow(weekday);
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
  capacity_.ScheduledHours[weekday] = 0;
  scheduledLabor_[weekday] = 0;
  for (BoardRow& row : rows) {
    Current() = std::move(row.estimate);
    AddWeekLines(weekday);
    if (!IsDayOnShow(weekday)) continue;
    selectedDayIndex_ = weekday;
    AddDayLines(row.laborLines);
  }
  frameWeek[weekday].SetBackColor(
      ClassifyDay(capacity_.AvailableHours[weekday], capacity_.ScheduledHours[weekday], capacity_.FudgeFactor));
}

bool frmMain::IsShown(std::int16_t status) const {
  return status >= 0 && status < static_cast<int>(kStatusCount) && showStatus_[static_cast<std::size_t>(status)]->Checked();
}

// In the stored form of the name: last name, comma, first name.
std::string frmMain::CustomerNameForLists() {
  Customers& customers = shop_.records.customers;
  if (!customers.LookupCustomer(Current().CustomerNumber, kNoLink)) return std::string(kUnknownCustomer);
  const CustomerRecord& record = customers.CurrentCustomer;
  std::string name(record.View(customer::Lastname));
  name += ',';
  name += record.View(customer::Firstname);
  return Left(name, kNameWidth);
}

// Counts before the day list has had a chance to read a past Scheduled estimate as a No-show: such an estimate is
// counted under Scheduled and listed under No-show.
void frmMain::AddWeekLines(std::size_t weekday) {
  const Estimate& estimate = Current();
  ui::ListBox& list = List1[weekday];
  if (IsShown(estimate.Status)) {
    list.AddItem(FormatZeros(estimate.EstimateNumber, 6) + " " + (estimate.Status == kScheduled ? "" : CurrentStatusText()),
                 estimate.EstimateNumber);
    list.AddItem("  " + CustomerNameForLists(), estimate.EstimateNumber);
    if (modEstimates::CountsTowardDay(estimate.Status)) {
      capacity_.ScheduledHours[weekday] += estimate.TotalHours;
      scheduledLabor_[weekday] += estimate.TotalLabor;
    }
  }
  ui::SetListExtent(list);
}

void frmMain::AddDayLines(const std::vector<std::string>& laborLines) {
  Estimate& estimate = Current();
  const std::string name = CustomerNameForLists();
  const std::string phones = name == kUnknownCustomer ? "" : Phones(shop_.records.customers.CurrentCustomer);
  const std::string status = CurrentStatusText();
  if (IsShown(estimate.Status)) {
    const std::int32_t number = estimate.EstimateNumber;
    List2.AddItem(FormatZeros(number, 6) + " " + LeftJustify(name, kNameWidth) + " " +
                      LeftJustify(phones, kPhonesWidth) + " " +
                      LeftJustify(estimate.VehYear + " " + estimate.VehMake + " " + estimate.VehModel, kVehicleWidth) +
                      " " + RightJustify(FormatHundredths(estimate.TotalHours), kHoursWidth),
                  number);
    if (!Trim(estimate.Comments).empty()) List2.AddItem(" ----> " + Trim(estimate.Comments), number);
    List2.AddItem(std::string(kStatusLineStart) + FormatDate(estimate.CreateDate) + ", Scheduled for " +
                      FormatDate(estimate.SchedDate) + ", Status = " + status,
                  number);
    for (const std::string& line : laborLines) List2.AddItem(line, number);
  }
  ui::SetListExtent(List2);
}

// As the day list shows them, with the blank line that closes them.
std::vector<std::string> frmMain::FetchLaborLines(std::int32_t estimate) {
  std::vector<std::string> lines;
  Recordset& labor = Data().LaborForEstimate(estimate);
  for (; !labor.Eof(); labor.MoveNext()) {
    const std::string description = labor.IsNull("Description") ? "<No description>" : labor.Text("Description");
    lines.push_back("       " + FormatZeros(labor.Long("Mechanic"), 6) + " " +
                    FormatHundredths(labor.Long("LaborHours")) + " " + FormatHundredths(labor.Long("LaborRate")) +
                    " " + FormatHundredths(labor.Long("LaborTotal")) + " " + SplitLaborText(description).front());
  }
  labor.Close();
  lines.push_back(" ");
  return lines;
}

void frmMain::ShowDayHeader(std::size_t weekday) {
  const Hundredths available = capacity_.AvailableHours[weekday];
  const Hundredths scheduled = capacity_.ScheduledHours[weekday];
  lblDate.SetCaption(frameWeek[weekday].Caption());
  lblAvail.SetCaption(FormatHundredths(available));
  lblSched.SetCaption(FormatHundredths(scheduled));
  lblDiff.SetCaption(FormatHundredths(static_cast<std::int64_t>(scheduled) - available));
  const ui::Color color = ClassifyDay(available, scheduled, capacity_.FudgeFactor);
  Frame1.SetBackColor(color);
  lblStatus.SetCaption(std::string(DayStatusText(color)));
  frameWeek[weekday].SetBackColor(color);
  if (frameDay.Tag() == frameWeek[weekday].Tag()) frameDay.SetBackColor(color);
}

void frmMain::RefreshCustomerIndex() {
  {
    ui::Hourglass hourglass(shop_.desktop);
    shop_.records.customers.RefreshCustomers();
  }
  shop_.desktop.Tell("Customer information refreshed.", "Refresh Complete.");
}

}  // namespace lantos
