#include "masters/employees/NewEmployee.h"

#include "records/modEmployees.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

// A number that a damaged or older counter hands out can be nobody's, or somebody's already.
bool IsSomebodys(std::int32_t number) { return number != 0 && number != kNoEmployeeNumber; }

}  // namespace

std::int32_t AddNewEmployee(Records& records, std::string_view name) {
  EmployeeRecord record;
  record.Put(employee::Name, name);
  record.Put(employee::DateHired, -1);
  record.Put(employee::DateTerminated, -1);
  record.Put(employee::PayrollHead, kNoLink);
  for (;;) {
    const std::int32_t number = records.system.TakeNumber(sysrec::last_employee_number);
    record.Put(employee::EmpNumber, number);
    if (IsSomebodys(number) && records.employees.AddEmployee(record) == modEmployees::Added::Yes) return number;
  }
}

}  // namespace lantos
