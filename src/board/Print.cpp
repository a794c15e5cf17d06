#include "board/frmMain.h"
#include "frame/Text.h"
#include "printing/EstimateReport.h"
#include "printing/ReportDesigns.h"
#include "printing/ShowReport.h"
#include "printing/WorksheetReport.h"
#include "records/MakesModels.h"
#include "records/modSystem.h"

// What goes on paper from the board, and the status that follows from it.
namespace lantos {

namespace {

constexpr const char* kEstimateTitle = "Print Estimate";
constexpr const char* kWorksheetTitle = "Print Worksheet";

}  // namespace

// As the shop has them now: another workstation may have changed them.
void frmMain::ReadPrintOptions() { shop_.environment.printOptions = LoadPrintOptions(shop_.environment.Profile()); }

// The title is the same for both papers.
bool frmMain::HasEstimateToPrint() {
  return HasCurrentEstimate(kEstimateTitle, "Must first select an estimate to print.");
}

// A customer who waits gets the paper, past midnight too.
void frmMain::PrintEstimateClick() {
  if (!HasEstimateToPrint()) return;
  if (Current().Status != kScheduled &&
      shop_.desktop.Ask("Current status is not \"Scheduled\".\rDo you want to print the estimate anyway?",
                        kEstimateTitle, ui::Buttons::YesNo) != ui::Answer::Yes) {
    return;
  }
  ReadPrintOptions();
  KeepUnsavedComments();
  const TotalTexts totals{txtTotalLabor.Text(), txtTotalParts.Text(), txtTotalSublet.Text(),
                          txtTotalWaste.Text(), txtTotalTax.Text(),   txtTotalCost.Text()};
  const EstimateReport report(shop_.environment, shop_.records, database_);
  ShowReport(shop_.desktop, shop_.environment, report.Make(estimateCustomer_, totals),
             shop_.environment.printOptions.PreviewEstimate);
  if (Current().Status == kScheduled) FollowPrint(StatusOption::ScheduledToArrived, "Scheduled to Arrived?", kArrived);
}

void frmMain::PrintWorksheetClick() {
  CheckDayRollover();
  if (!HasEstimateToPrint()) return;
  ui::Desktop& desktop = shop_.desktop;
  if (Current().Status > kArrived && desktop.Ask("Current status is neither \"Scheduled\" nor \"Arrived\".\r\r"
                                                 "Are you sure you want to print the worksheet?",
                                                 kWorksheetTitle, ui::Buttons::YesNo) != ui::Answer::Yes) {
    return;
  }
  const StatusOptions& options = shop_.environment.statusOptions;
  if (Current().Status == kScheduled && options[StatusOption::ScheduledToInProgress] == 'E') {
    desktop.Tell(
        "To print the worksheet, the current status must not be \"Scheduled\".\r"
        "You must either first print the Estimate, or change the status via\r"
        "the \"Change Status\" command button.",
        kWorksheetTitle);
    return;
  }
  ReadPrintOptions();
  KeepUnsavedComments();
  WorksheetReport report(shop_.environment, desktop, shop_.records, database_);
  ShowReport(desktop, shop_.environment, report.Make(estimateCustomer_),
             shop_.environment.printOptions.PreviewWorksheet);
  if (Current().Status == kScheduled) {
    FollowPrint(StatusOption::ScheduledToInProgress, "Scheduled to In Progress?", kInProgress);
  } else if (Current().Status == kArrived) {
    FollowPrint(StatusOption::ArrivedToInProgress, "Arrived to In Progress?", kInProgress);
  }
}

// The status that a printed paper leads to, as the option wants it.
void frmMain::FollowPrint(StatusOption option, const char* question, std::int16_t status) {
  const char letter = shop_.environment.statusOptions[option];
  if (letter != 'Y' && (letter != 'A' || shop_.desktop.Ask(std::string("Shall I change the status from\r") + question,
                                                           kEstimateTitle, ui::Buttons::YesNo) != ui::Answer::Yes)) {
    return;
  }
  const std::int16_t oldStatus = Current().Status;
  Current().Status = status;
  database_.estimates.SaveStatus();
  RefreshStatusText(StatusText(Current()));
  if (LoadWeekIfCountChanged(oldStatus)) ShowEstimateDetail();
}

// What the screen shows: the same filter, order and labor.
void frmMain::PrintDayClick() {
  CheckDayRollover();
  ui::Report report{DayViewDesign(), "Day View", {}};
  report.SetLabel("lblCompanyName", shop_.records.system.SysRec.Get(sysrec::company_name));
  report.SetLabel("lblHeading1", frameDay.Caption());
  ReportLines lines(false);
  for (const ui::ListRow& row : List2.Rows()) lines.Add(row.text);
  report.lines = lines.Rows();
  ShowReport(shop_.desktop, shop_.environment, report, true);
}

}  // namespace lantos
