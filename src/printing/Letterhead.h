#pragma once

#include <string>

#include "estimatedb/modEstimates.h"
#include "frame/Clock.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "records/modSystem.h"
#include "ui/Report.h"

namespace lantos {

// The header labels that estimates and worksheets share; those that a design doesn't have are passed over.
void FillCompany(ui::Report& report, const SystemRecord& system);
void FillCustomer(ui::Report& report, const CustomerRecord& customer);
// Number, scheduled date and the vehicle as the estimate tells of it.
void FillEstimate(ui::Report& report, const Estimate& estimate);
void FillVehicle(ui::Report& report, const VehicleRecord& record);
// When the paper was made.
void FillPrintTime(ui::Report& report, LocalTime now);

}  // namespace lantos
