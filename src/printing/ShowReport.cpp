#include "printing/ShowReport.h"

#include "ui/WindowPlace.h"

namespace lantos {

void ShowReport(ui::Desktop& desktop, Environment& environment, const ui::Report& report, PaperWay way) {
  if (way == PaperWay::Printer) {
    const bool asks = environment.printOptions.ShowPrinterDialog;
    return desktop.PrintReport(report, asks ? ui::PrinterDialog::Shown : ui::PrinterDialog::Skipped);
  }
  ui::ControlPlace place = ui::RestoreControlPlace(environment.settings, report.design.caption, {});
  desktop.PreviewReport(report, place);
  ui::SaveControlPlace(environment.settings, report.design.caption, place);
}

}  // namespace lantos
