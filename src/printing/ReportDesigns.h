#pragma once

#include "ui/Report.h"

namespace lantos {

// The papers of the shop: which fields stand where. The labels of the shop, the customer, the vehicle and the estimate
// are filled by Letterhead, the others by whoever composes the paper; a design says by its labels' names what it wants.
enum class EstimatePaper { Plain, WithDisclosure };
ui::ReportDesign EstimateDesign(EstimatePaper paper);  // rptEstimate, rptEstimate2
enum class WorksheetPaper { Plain, WithCustomer };
ui::ReportDesign WorksheetDesign(WorksheetPaper paper);  // rptWorksheet1, rptWorksheet2
ui::ReportDesign WorkorderDesign();                      // rptWorkorder
ui::ReportDesign DayViewDesign();                        // rptDayView
ui::ReportDesign GenericDesign();                        // rptGeneric

}  // namespace lantos
