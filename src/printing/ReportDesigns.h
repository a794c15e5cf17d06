#pragma once

#include "ui/Report.h"

namespace lantos {

// The papers of the shop: which fields stand where. Texts come from the routines that compose them.
ui::ReportDesign EstimateDesign(bool withDisclosure);  // rptEstimate, rptEstimate2
ui::ReportDesign WorksheetDesign(bool withCustomer);   // rptWorksheet1, rptWorksheet2
ui::ReportDesign DayViewDesign();                      // rptDayView
ui::ReportDesign GenericDesign();                      // rptGeneric

}  // namespace lantos
