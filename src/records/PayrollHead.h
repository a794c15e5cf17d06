#pragma once

#include <optional>

#include "frame/Environment.h"
#include "records/modEmployees.h"

namespace lantos {

// An employee's record as it lies on disk, and where in it the chain of pay records begins. FileError when the file
// can't be had, after a moment's patience.

std::optional<EmployeeRecord> EmployeeOnFile(Environment& environment, std::int32_t employee);
// kNoLink without pay records, and for a number that isn't on file.
FileLink PayrollHeadOf(Environment& environment, std::int32_t employee);
// Nothing else of the record changes. An employee who isn't on file throws.
void SetPayrollHead(Environment& environment, std::int32_t employee, FileLink head);

}  // namespace lantos
