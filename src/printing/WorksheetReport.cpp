#include "printing/WorksheetReport.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "printing/EstimateText.h"
#include "printing/Letterhead.h"
#include "printing/ReportDesigns.h"
#include "printing/VehicleSummary.h"
#include "records/Customers.h"
#include "records/Followups.h"
#include "records/Vehicles.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr const char* kTechHeading = "Tech     Hours     Description";
constexpr const char* kTechRule =
    "______   _______   __________________________________________________________________________________";
constexpr const char* kPartRule =
    "________________________________________________    _________________________________________________";
constexpr std::size_t kServiceWidth = 68;  // two blanks, a line of text, and what keeps it apart from the due date

std::string FollowupRow(const std::string& service, const std::string& due) {
  return LeftJustify("  " + service, kServiceWidth) + "  " + due;
}

}  // namespace

ui::Report WorksheetReport::Make(const CustomerRecord& customer) {
  ReportLines lines(ReportLines::Amounts::None);
  ComposeComments(lines);
  ComposeLabor(lines);
  ComposeParts(lines);
  if (Options().PrintNotesOnWorksheet) AddNotes(lines, database_.lantosData.NotesForEstimate(Number()));
  ComposeFollowups(lines);
  const std::string vin = Trim(Current().VehVIN);
  if (Options().PrintVehSummaryOnWorksheet && !vin.empty()) {
    VehicleSummary(environment_, desktop_, records_).Compose(vin, lines);
  }
  ui::Report report{
      WorksheetDesign(Options().PrintCustomerOnWorksheet ? WorksheetPaper::WithCustomer : WorksheetPaper::Plain),
      "Technician Worksheet for Estimate " + std::to_string(Number()), lines.Rows(), lines.Kinds()};
  FillCompany(report, records_.system.SysRec);
  FillCustomer(report, customer);
  FillEstimate(report, Current());
  if (Current().VehicleLink != kNoLink) {
    const std::optional<VehicleRecord> record = records_.vehicles.Read(Current().VehicleLink);
    if (!record) return report;
    const DaySerial seen = FromFileDate(record->Get(vehicle::Date));
    report.SetLabel("lblLastSeen", seen >= 1 ? FormatDate(seen) : "");
    report.SetLabel("lblLastMiles", std::to_string(record->Get(vehicle::Mileage)));
  }
  return report;
}

void WorksheetReport::ComposeComments(ReportLines& lines) const {
  const std::string comments = Trim(Current().Comments);
  if (!Options().PrintCommentsOnWorksheet || comments.empty()) return;
  lines.AddHeading("____Comments____");
  for (const std::string& line : ui::LinesOf(comments)) {
    if (!Trim(line).empty()) lines.Add(line);
  }
  lines.AddBlank();
}

void WorksheetReport::ComposeLabor(ReportLines& lines) const {
  const int blankLines = Options().BlankLinesPerLabor;
  lines.AddHeading("____Labor____");
  lines.Add("       HOURS APPLIED ON");
  if (blankLines == 0) {
    lines.AddHeading(kTechHeading);
    lines.AddRule(kTechRule);
  }
  Recordset& rows = database_.lantosData.LaborForEstimate(Number());
  for (; !rows.Eof(); rows.MoveNext()) {
    const LaborText text = LaborOnPaper(rows.Text("Description"));
    bool first = true;
    for (const std::string& line : text) {
      if (line.empty()) continue;
      if (first) {
        lines.AddHeading(line);
      } else if (blankLines > 0) {
        lines.AddLeading(line);
      } else {
        lines.Add(line);
      }
      first = false;
    }
    if (blankLines <= 0) continue;
    lines.AddHeading(kTechHeading);
    for (int i = 0; i < blankLines; ++i) lines.AddRule(kTechRule);
  }
  rows.Close();
}

void WorksheetReport::ComposeParts(ReportLines& lines) const {
  lines.AddHeading("____Parts____");
  Recordset& rows = database_.lantosData.PartsTable(Number());
  for (; !rows.Eof(); rows.MoveNext()) lines.Add(PartOnPaper(rows, PartNumber::Shown));
  rows.Close();
  lines.AddBlank();
  for (int i = 0; i < Options().BlankPartLines; ++i) lines.AddRule(kPartRule);
}

// What earlier work orders recommended for this vehicle and nobody has booked yet.
void WorksheetReport::ComposeFollowups(ReportLines& lines) const {
  const std::vector<Followup> followups =
      records_.followups.OpenFollowups(Current().CustomerNumber, Trim(Current().VehVIN), Trim(Current().VehLic));
  if (followups.empty()) return;
  lines.AddHeading(FollowupRow("Service", "Due Back"));
  for (const Followup& followup : followups) {
    const DaySerial date = FromFileDate(followup.record.Get(followup::FollowupDate));
    const std::int32_t miles = followup.record.Get(followup::Miles);
    std::string due = date > 0 ? FormatDate(date) : "";
    if (miles > 0) due += (due.empty() ? "" : " ") + std::to_string(miles) + " mi";
    lines.Add(FollowupRow(LaborOnPaper(followup.record.Get(followup::Description))[0], due));
    lines.Add(FollowupRow("________________________", "______________"));
  }
}

}  // namespace lantos
