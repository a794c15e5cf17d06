#include "printing/ShowReport.h"

#include "ui/WindowPlace.h"

namespace lantos {

void ShowReport(ui::Desktop& desktop, Environment& environment, const ui::Report& report, bool preview) {
  if (!preview) return desktop.PrintReport(report, environment.printOptions.ShowPrinterDialog);
  ui::ControlPlace place = ui::RestoreControlPlace(environment.settings, report.design.caption, {});
  desktop.PreviewReport(report, place);
  ui::SaveControlPlace(environment.settings, report.design.caption, place);
}

}  // namespace lantos
