#include "printing/EstimateReport.h"

#include "frame/Numbers.h"
#include "frame/Text.h"
#include "printing/EstimateText.h"
#include "printing/Letterhead.h"
#include "printing/ReportDesigns.h"
#include "records/Statements.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr const char* kIndent = "       ";

constexpr const char* kDefaultDisclosure =
    "Please read carefully, check one of the statements below, and sign:\r\n\r\n"
    "I understand that, under state law, I am entitled to a written estimate if my final bill will exceed $100.\r\n\r\n"
    "____ I request a written estimate.\r\n\r\n"
    "____ I do not request a written estimate as long as the repair costs do not exceed $____________. \r\n\r\n"
    "The shop may not exceed this amount without my written or oral approval.\r\n\r\n"
    "____ I do not request a written estimate.\r\n\r\n"
    "Signed: __________________________________ Date: ______________";

}  // namespace

std::string ReadDisclaimer(Environment& environment) {
  const bool own = environment.files.FileExists(kEstimateDisclaimer);
  return ReadTrimmedStatement(environment, own ? kEstimateDisclaimer : kWorkorderDisclaimer);
}

ui::Report EstimateReport::Make(const CustomerRecord& customer, const TotalTexts& totals) const {
  ReportLines lines(ReportLines::Amounts::Three);
  ComposeLabor(lines);
  ComposeParts(lines);
  ComposeExtras(lines, database_.lantosData.SubletsForEstimate(Number()), "____Sublets____");
  ComposeExtras(lines, database_.lantosData.WasteForEstimate(Number()), "____Waste____");
  if (!totals.tax.empty()) {
    lines.Add("Tax", " ", " ", totals.tax);
    lines.AddBlank();
  }
  if (AddNotes(lines, database_.lantosData.NotesForEstimate(Number()))) lines.AddBlank();

  const bool withDisclosure = environment_.printOptions.PrintDisclosure;
  ui::Report report{EstimateDesign(withDisclosure ? EstimatePaper::WithDisclosure : EstimatePaper::Plain),
                    "Estimate " + std::to_string(Number()), lines.Rows()};
  FillCompany(report, records_.system.SysRec);
  FillCustomer(report, customer);
  FillEstimate(report, database_.estimates.CurrentEstimate);
  FillPrintTime(report, environment_.clock.Now());
  report.SetLabel("lblLabor", totals.labor);
  report.SetLabel("lblParts", totals.parts);
  report.SetLabel("lblSublet", totals.sublet);
  report.SetLabel("lblWaste", totals.waste);
  report.SetLabel("lblTax", totals.tax);
  report.SetLabel("lblTotal", totals.total);
  report.SetLabel("lblDisclaimer", ReadDisclaimer(environment_));
  if (withDisclosure) report.SetLabel("lblDisclosure", Disclosure());
  return report;
}

void EstimateReport::ComposeLabor(ReportLines& lines) const {
  Recordset& rows = database_.lantosData.LaborForEstimate(Number());
  const bool any = !rows.Eof();
  if (any) lines.Add("____Labor____");
  for (; !rows.Eof(); rows.MoveNext()) {
    const LaborText text = LaborOnPaper(rows.Text("Description"));
    lines.Add(FormatZeros(rows.Long("Mechanic"), 6) + " " + text[0], FormatHundredths(rows.Long("LaborHours")),
              FormatHundredths(rows.Long("LaborRate")), FormatHundredths(rows.Long("LaborTotal")));
    for (std::size_t i = 1; i < text.size(); ++i) {
      if (!text[i].empty()) lines.Add(kIndent + text[i]);
    }
  }
  rows.Close();
  if (any) lines.AddBlank();
}

void EstimateReport::ComposeParts(ReportLines& lines) const {
  Recordset& rows = database_.lantosData.PartsTable(Number());
  const bool any = !rows.Eof();
  const PartNumber number = environment_.printOptions.ShowPartNumbersOnEst ? PartNumber::Shown : PartNumber::Hidden;
  if (any) lines.Add("____Parts____");
  for (; !rows.Eof(); rows.MoveNext()) {
    lines.Add(PartOnPaper(rows, number), std::to_string(rows.Long("Quantity")),
              FormatHundredths(rows.Long("PartPrice")), FormatHundredths(rows.Long("PartTotal")));
  }
  rows.Close();
  if (any) lines.AddBlank();
}

void EstimateReport::ComposeExtras(ReportLines& lines, Recordset& rows, const char* heading) const {
  const bool any = !rows.Eof();
  if (any) lines.Add(heading);
  for (; !rows.Eof(); rows.MoveNext()) {
    lines.Add(rows.Text("VendorName"), " ", " ", FormatHundredths(rows.Long("Price")));
    for (const char* column : {"Desc1", "Desc2", "Desc3", "Desc4"}) {
      const std::string text = rows.Text(column);
      if (!Trim(text).empty()) lines.Add(kIndent + text);
    }
  }
  rows.Close();
  if (any) lines.AddBlank();
}

std::string EstimateReport::Disclosure() const {
  return environment_.files.FileExists(kDisclosureFile) ? ReadStatement(environment_, kDisclosureFile)
                                                        : kDefaultDisclosure;
}

}  // namespace lantos
