#pragma once

#include "records/modEmployees.h"

namespace lantos {

// What an hour of an employee costs: a salary goes before a wage, each by its pay period. Here and below halves are
// rounded to even, and what 32 bits can't hold stays at their end.
Cents HourlyWage(const EmployeeRecord& employee);

// What a line of labor costs the shop: wage and commission of its mechanic for the hours, the commission on the rate
// (an hour). 0 for nobody and for a number that isn't found. Loads the employee table if need be; throws FileError
// then.
Cents GetLaborCost(modEmployees& employees, Hundredths hours, Cents rate, std::int32_t mechanic);

// As the employee file has it; 0 for a number that isn't found.
Millionths GetMechanicCommission(modEmployees& employees, std::int32_t mechanic);

}  // namespace lantos
