#include "printing/PayStubPaper.h"

#include "frame/Text.h"
#include "ui/Report.h"

namespace lantos {

namespace {

constexpr std::size_t kWidth = 80;

ui::ReportDesign Design() {
  ui::ReportDesign design;
  design.name = "rptPayStub";
  design.caption = "Payroll Stub";
  design.characters = kWidth;
  design.columns = {{"DataLine", 0, 1, ui::Align::Left, ""}};
  return design;
}

std::string TextOf(const StubLine& line) {
  if (line.atRightEdge.empty()) return line.text;
  const std::size_t room = kWidth - 1 - line.atRightEdge.size();
  return LeftJustify(line.text, room) + line.atRightEdge;
}

}  // namespace

void PrintPayStub(ui::Desktop& desktop, const std::vector<StubLine>& lines) {
  ui::Report job{Design(), "Payroll Stub", {}};
  for (const StubLine& line : lines) job.lines.push_back({TextOf(line)});
  desktop.PrintReport(job, ui::PrinterDialog::Skipped);
}

}  // namespace lantos
