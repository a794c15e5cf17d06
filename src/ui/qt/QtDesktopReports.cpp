#include "ui/Report.h"
#include "ui/qt/QtDesktop.h"

namespace lantos::ui {

void QtDesktop::PreviewReport(const Report&, ControlPlace&) {}
void QtDesktop::PrintReport(const Report&, bool) {}

}  // namespace lantos::ui
