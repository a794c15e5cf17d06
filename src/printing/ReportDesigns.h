#pragma once

#include "ui/Report.h"

namespace lantos {

// The papers of the shop: which fields stand where. The labels of the shop, the customer, the vehicle and the estimate
// are filled by Letterhead, the others by whoever composes the paper; a design says by its labels' names what it wants.
ui::ReportDesign EstimateDesign(bool withDisclosure);  // rptEstimate, rptEstimate2
ui::ReportDesign WorksheetDesign(bool withCustomer);   // rptWorksheet1, rptWorksheet2
ui::ReportDesign DayViewDesign();                      // rptDayView
ui::ReportDesign GenericDesign();                      // rptGeneric

}  // namespace lantos
