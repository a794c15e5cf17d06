#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frame/Environment.h"
#include "records/Record.h"
#include "records/modEmployees.h"
#include "ui/Desktop.h"

namespace lantos {

// TQPAYROL.DAT: what each payroll came to for each employee, chained from an employee's newest record to the oldest by
// byte offsets. The main application adds the records. Money in cents.
namespace payrecord {
inline constexpr LongField EmployeeNumber{0};                  // kDeletedPay on a record that is deleted
inline constexpr LongField PayrollDate{EmployeeNumber.End()};  // FileDate
inline constexpr LongField Hours{PayrollDate.End()};           // Hundredths
inline constexpr LongField Gross{Hours.End()};                 // taxable
inline constexpr OpaqueField korvel1{Gross.End(), 1};
inline constexpr LongField FICA{korvel1.End()};
inline constexpr LongField Medicare{FICA.End()};
inline constexpr LongField FUTA{Medicare.End()};  // the employer's, as the next one
inline constexpr LongField SUTA{FUTA.End()};
inline constexpr OpaqueField korvel2{SUTA.End(), 8 + 3 * 19 + 158};
// The employee's record from here to the end of the deductions, as it stood on that payroll.
inline constexpr ByteField MaritalStatus{korvel2.End()};
inline constexpr ByteField NumExemptions{MaritalStatus.End()};
inline constexpr ByteField FICAExempt{NumExemptions.End()};
inline constexpr LongField Wage{FICAExempt.End()};                // an hour
inline constexpr ByteField WagePeriod{Wage.End()};                // above 0: paid by the hour
inline constexpr LongField Salary{WagePeriod.End()};              // a period
inline constexpr ByteField SalaryPeriod{Salary.End()};            // 0: no salary
inline constexpr ByteField CommissionPeriod{SalaryPeriod.End()};  // above 0: earns commission
inline constexpr LongField Commission{CommissionPeriod.End()};    // Millionths
inline constexpr LongField Insurance{Commission.End()};
inline constexpr ByteField OvertimeExempt{Insurance.End()};
inline constexpr LongField Savings{OvertimeExempt.End()};
inline constexpr OpaqueField korvel3{Savings.End(), 4};
inline constexpr LongField Uniform{korvel3.End()};
inline constexpr OpaqueField korvel4{Uniform.End(), 8};
inline constexpr LongField NextRecord{korvel4.End()};  // FileLink of the employee's next older record
static_assert(MaritalStatus.offset == 256);
static_assert(Insurance.offset == 274 && Savings.offset == 279 && Uniform.offset == 287);
static_assert(NextRecord.End() == 303);
}  // namespace payrecord
using PayRecord = Record<payrecord::NextRecord.End()>;

inline constexpr std::string_view kPayrollFile = "TQPAYROL.DAT";
inline constexpr std::int32_t kDeletedPay = -1;

struct PayEntry {
  PayRecord record;
  FileLink place = kNoLink;
};

// An employee's chain, the newest record first.
struct PayChain {
  std::vector<PayEntry> entries;
  // What ended it ahead of its end, in words for a person: a link back into it or out of the file, or somebody else's
  // record. Empty for a sound chain.
  std::string damage;
};

class Payroll {
 public:
  Payroll(Environment& environment, ui::Desktop& desktop, modEmployees& employees)
      : environment_(environment), desktop_(desktop), employees_(employees) {}
  Payroll(const Payroll&) = delete;

  // From the head in the employee's record; loads the table of employees. A record marked as deleted ends it. FileError
  // when a file can't be read, after a moment's patience.
  PayChain Load(std::int32_t employee);

  // Takes entries of the employee off the chain, from the newest to the oldest, and marks their records as deleted, all
  // under one hold. What is on the chain, and behind what, is read anew under it: an entry that isn't there any more as
  // it was loaded is left alone. removed hears of each one that is gone. A held file is asked about until it is free.
  //
  // Each record is passed over before it is marked, so that whenever a run ends in between, the chain is whole.
  void Remove(std::int32_t employee, const std::vector<PayEntry>& marked,
              const std::function<void(const PayEntry& entry)>& removed);

 private:
  FileLink HeadOf(std::int32_t employee);
  void SetHead(std::int32_t employee, FileLink head);

  Environment& environment_;
  ui::Desktop& desktop_;
  modEmployees& employees_;
};

}  // namespace lantos
