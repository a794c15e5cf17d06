#include "printing/PayStubPaper.h"

#include "printing/PrintUtil.h"

namespace lantos {

void PrintPayStub(ui::Desktop& desktop, const std::vector<StubLine>& lines) {
  PrintUtil printer(desktop, "rptPayStub", "Payroll Stub");
  printer.BeginPrintJob();
  printer.SetOrientation(ui::Orientation::Portrait);
  for (const StubLine& line : lines) {
    printer.PrintText(line.text, line.atRightEdge.empty() ? PrintUtil::Pen::ToNextLine : PrintUtil::Pen::Stays);
    if (!line.atRightEdge.empty()) printer.PrintRight(line.atRightEdge);
  }
  printer.EndPrintJob();
}

}  // namespace lantos
