#include "printing/ListReport.h"

#include "frame/Dates.h"
#include "printing/ReportDesigns.h"

namespace lantos {

ui::Report ListReport(const std::string& title, DaySerial today, const SystemRecord& system, const ReportLines& lines,
                      const AmountHeadings* headings) {
  ui::Report report{GenericDesign(), title, lines.Rows()};
  if (headings != nullptr) {
    const ui::ReportDesign withAmounts = EstimateDesign(EstimatePaper::Plain);
    report.design.columns = withAmounts.columns;
    report.design.characters = withAmounts.characters;
    const char* texts[] = {headings->amount1, headings->amount2, headings->amount3};
    for (std::size_t i = 0; i < std::size(texts); ++i) report.design.columns[i + 1].heading = texts[i];
  }
  report.SetLabel("lblCompanyName", system.Get(sysrec::company_name));
  report.SetLabel("lblReportName", title);
  report.SetLabel("lblHeading2", FormatDate(today));
  return report;
}

}  // namespace lantos
