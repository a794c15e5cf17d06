#include "workorders/LaborCost.h"

#include <cmath>

#include "frame/Numbers.h"

namespace lantos {

namespace {

constexpr std::int64_t kHoursAYear = 2080;
// A salary's share of an hour is salary x periods / hours; by the code of the pay period.
struct PayPeriod {
  std::int64_t periods;
  std::int64_t hours;
};
constexpr PayPeriod kPayPeriods[] = {
    {0, 1},  // paid by the hour
    {1, 40},          {1, 80},          {24, kHoursAYear}, {12, kHoursAYear},
    {4, kHoursAYear}, {2, kHoursAYear}, {1, kHoursAYear},  {1, 8},
};

const EmployeeRecord* Find(modEmployees& employees, std::int32_t mechanic) {
  if (mechanic < 1) return nullptr;
  if (!employees.Loaded()) employees.LoadEmployees();
  for (const EmployeeRecord& record : employees.Employees()) {
    if (record.Get(employee::EmpNumber) == mechanic) return &record;
  }
  return nullptr;
}

}  // namespace

Cents HourlyWage(const EmployeeRecord& record) {
  const std::size_t code = record.Get(employee::SalaryPeriod);
  if (code == 0) return record.Get(employee::WagePeriod) > 0 ? record.Get(employee::Wage) : 0;
  if (code >= std::size(kPayPeriods)) return 0;
  const PayPeriod& period = kPayPeriods[code];
  return RoundHalfEven(
      static_cast<double>(DivideHalfEven(record.Get(employee::Salary) * period.periods, period.hours)));
}

Cents GetLaborCost(modEmployees& employees, Hundredths hours, Cents rate, std::int32_t mechanic) {
  const EmployeeRecord* record = Find(employees, mechanic);
  if (record == nullptr) return 0;
  const Millionths commission = record->Get(employee::CommissionPeriod) > 0 ? record->Get(employee::Commission) : 0;
  // Hundredths of an hour times cents, in millionths: whole, so that a half cent is a half.
  const long double cost = static_cast<long double>(hours) *
                           (static_cast<long double>(HourlyWage(*record)) * 1e6L +
                            static_cast<long double>(commission) * static_cast<long double>(rate)) /
                           1e8L;
  return RoundHalfEven(static_cast<double>(std::nearbyint(cost)));
}

Millionths GetMechanicCommission(modEmployees& employees, std::int32_t mechanic) {
  const EmployeeRecord* record = Find(employees, mechanic);
  return record == nullptr ? 0 : record->Get(employee::Commission);
}

}  // namespace lantos
