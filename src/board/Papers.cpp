#include "board/Papers.h"

#include "frame/Text.h"
#include "printing/EstimateReport.h"
#include "printing/ReportDesigns.h"
#include "printing/ShowReport.h"
#include "printing/WorksheetReport.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr const char* kEstimateTitle = "Print Estimate";
constexpr const char* kWorksheetTitle = "Print Worksheet";

}  // namespace

// As the shop has them now: another workstation may have changed them.
void Papers::ReadPrintOptions() {
  parts_.shop.environment.printOptions = LoadPrintOptions(parts_.shop.environment.Profile());
}

// A paper has the customer and the totals of the detail view, and its lines from the database: both are to be the same.
void Papers::FillDetail() { parts_.detail.ShowEstimateDetail(); }

void Papers::PrintEstimate() {
  ui::Desktop& desktop = parts_.shop.desktop;
  if (Current().Status != kScheduled &&
      desktop.Ask("Current status is not \"Scheduled\".\rDo you want to print the estimate anyway?", kEstimateTitle,
                  ui::Buttons::YesNo) != ui::Answer::Yes) {
    return;
  }
  ReadPrintOptions();
  FillDetail();
  const DetailPane& detail = parts_.detail;
  const TotalTexts totals{detail.txtTotalLabor.Text(), detail.txtTotalParts.Text(), detail.txtTotalSublet.Text(),
                          detail.txtTotalWaste.Text(), detail.txtTotalTax.Text(),   detail.txtTotalCost.Text()};
  Environment& environment = parts_.shop.environment;
  const EstimateReport report(environment, parts_.shop.records, parts_.database);
  ShowReport(desktop, environment, report.Make(detail.Customer(), totals),
             PreviewIf(environment.printOptions.PreviewEstimate));
  if (Current().Status == kScheduled) FollowPrint(StatusOption::ScheduledToArrived, "Scheduled to Arrived?", kArrived);
}

// False when a question or an option ends the printing, which has been told.
bool Papers::MayPrintWorksheet() {
  ui::Desktop& desktop = parts_.shop.desktop;
  if (Current().Status > kArrived && desktop.Ask("Current status is neither \"Scheduled\" nor \"Arrived\".\r\r"
                                                 "Are you sure you want to print the worksheet?",
                                                 kWorksheetTitle, ui::Buttons::YesNo) != ui::Answer::Yes) {
    return false;
  }
  const StatusOptions& options = parts_.shop.environment.statusOptions;
  if (Current().Status != kScheduled || options[StatusOption::ScheduledToInProgress] != 'E') return true;
  desktop.Tell(
      "To print the worksheet, the current status must not be \"Scheduled\".\r"
      "You must either first print the Estimate, or change the status via\r"
      "the \"Change Status\" command button.",
      kWorksheetTitle);
  return false;
}

void Papers::PrintWorksheet() {
  if (!MayPrintWorksheet()) return;
  ReadPrintOptions();
  FillDetail();
  const DetailPane& detail = parts_.detail;
  Environment& environment = parts_.shop.environment;
  WorksheetReport report(environment, parts_.shop.desktop, parts_.shop.records, parts_.database);
  ShowReport(parts_.shop.desktop, environment, report.Make(detail.Customer()),
             PreviewIf(environment.printOptions.PreviewWorksheet));
  if (Current().Status == kScheduled) {
    FollowPrint(StatusOption::ScheduledToInProgress, "Scheduled to In Progress?", kInProgress);
  } else if (Current().Status == kArrived) {
    FollowPrint(StatusOption::ArrivedToInProgress, "Arrived to In Progress?", kInProgress);
  }
}

// The status that a printed paper leads to, as the option wants it.
void Papers::FollowPrint(StatusOption option, const char* question, std::int16_t status) {
  const char letter = parts_.shop.environment.statusOptions[option];
  if (letter != 'Y' &&
      (letter != 'A' || parts_.shop.desktop.Ask(std::string("Shall I change the status from\r") + question,
                                                kEstimateTitle, ui::Buttons::YesNo) != ui::Answer::Yes)) {
    return;
  }
  const std::int16_t oldStatus = Current().Status;
  parts_.database.estimates.ChangeStatus(status);
  board_.FollowStatus(oldStatus);
}

// What the screen shows: the same filter, order and labor.
void Papers::PrintDay() {
  ui::Report report{DayViewDesign(), "Day View", {}};
  report.SetLabel("lblCompanyName", parts_.shop.records.system.SysRec.Get(sysrec::company_name));
  report.SetLabel("lblHeading1", parts_.day.frameDay.Caption());
  ReportLines lines(ReportLines::Amounts::None);
  for (const ui::ListRow& row : parts_.day.List2.Rows()) lines.Add(row.text);
  report.lines = lines.Rows();
  ShowReport(parts_.shop.desktop, parts_.shop.environment, report, PaperWay::Preview);
}

}  // namespace lantos
