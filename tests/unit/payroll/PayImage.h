#pragma once

#include "frame/Dates.h"
#include "records/Payroll.h"

namespace lantos::test {

// Somebody who is paid by the period.
struct Pay {
  CivilDate date{2006, 3, 31};
  std::int32_t gross = 0;
  int exemptions = 0;
  std::uint8_t period = 1;
  std::uint8_t status = 0;
};

inline PayRecord PayOf(const Pay& pay) {
  PayRecord record;
  record.Put(payrecord::EmployeeNumber, 7);
  record.Put(payrecord::PayrollDate, ToFileDate(ToSerial(pay.date)));
  record.Put(payrecord::Gross, pay.gross);
  record.Put(payrecord::NumExemptions, static_cast<std::uint8_t>(pay.exemptions));
  record.Put(payrecord::MaritalStatus, pay.status);
  record.Put(payrecord::SalaryPeriod, pay.period);
  record.Put(payrecord::NextRecord, kNoLink);
  return record;
}

}  // namespace lantos::test
