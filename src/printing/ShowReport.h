#pragma once

#include "frame/Environment.h"
#include "ui/Desktop.h"
#include "ui/Report.h"

namespace lantos {

// Shows a report in the preview window, which comes up where it was left the last time, or sends it to the printer,
// through the printer dialog when the shop wants that.
void ShowReport(ui::Desktop& desktop, Environment& environment, const ui::Report& report, bool preview);

}  // namespace lantos
