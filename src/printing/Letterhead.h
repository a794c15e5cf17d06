#pragma once

#include <string>

#include "estimatedb/modEstimates.h"
#include "records/Customers.h"
#include "records/modSystem.h"
#include "ui/Report.h"

namespace lantos {

// The header labels that estimates and worksheets share; those that a design doesn't have are passed over.
void FillCompany(ui::Report& report, const SystemRecord& system);
void FillCustomer(ui::Report& report, const CustomerRecord& customer);
// Number, scheduled date and the vehicle as the estimate tells of it.
void FillEstimate(ui::Report& report, const Estimate& estimate);

}  // namespace lantos
