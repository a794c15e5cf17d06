#pragma once

#include "records/modEmployees.h"

namespace lantos {

// What an hour of an employee costs, from their wage or the salary of their pay period.
Cents HourlyWage(const EmployeeRecord& employee);

// What a line of labor costs the shop: wage and commission of its mechanic. 0 for nobody and for a number that isn't
// found. Loads the employee table if need be.
Cents GetLaborCost(modEmployees& employees, Hundredths hours, Cents rate, std::int32_t mechanic);

// As the employee file has it; 0 for a number that isn't found.
Millionths GetMechanicCommission(modEmployees& employees, std::int32_t mechanic);

}  // namespace lantos
