#pragma once

#include "frame/Environment.h"
#include "ui/Desktop.h"
#include "ui/Report.h"

namespace lantos {

enum class PaperWay { Preview, Printer };
inline PaperWay PreviewIf(bool wanted) { return wanted ? PaperWay::Preview : PaperWay::Printer; }

// Shows a report in the preview window, which comes up where it was left the last time, or sends it to the printer,
// through the printer dialog when the shop wants that.
void ShowReport(ui::Desktop& desktop, Environment& environment, const ui::Report& report, PaperWay way);

}  // namespace lantos
