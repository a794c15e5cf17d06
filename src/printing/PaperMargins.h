#pragma once

#include "ui/Report.h"

namespace lantos {

// Where the main application begins to print a work order: Korvel.ini in the current directory, section Printer Setup,
// in twips. What isn't there, or is no number, is 0.
ui::ReportMargins WorkorderMargins();

}  // namespace lantos
