#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "records/Record.h"

namespace lantos {

// TQEMPLOY.DAT: technicians and office staff, a plain array.
namespace employee {
inline constexpr LongField EmpNumber{0};  // -1 on a record that is to be dropped
inline constexpr TextField Name{EmpNumber.End(), 32};
inline constexpr TextField SocSecNum{Name.End(), 15};
inline constexpr TextField EmpAddr{SocSecNum.End(), 33};
inline constexpr TextField EmpCity{EmpAddr.End(), 21};
inline constexpr TextField EmpState{EmpCity.End(), 3};
inline constexpr TextField EmpZip{EmpState.End(), 11};
inline constexpr TextField EmpPhone{EmpZip.End(), 15};
inline constexpr LongField DateHired{EmpPhone.End()};  // FileDate, -1 for none
inline constexpr LongField DateTerminated{DateHired.End()};
inline constexpr ByteField MaritalStatus{DateTerminated.End()};
inline constexpr ByteField NumExemptions{MaritalStatus.End()};
inline constexpr ByteField FICAExempt{NumExemptions.End()};
inline constexpr OpaqueField payroll{FICAExempt.End(), 54};
static_assert(payroll.End() == 199);
// Within it.
inline constexpr LongField Wage{payroll.offset};                  // Cents an hour
inline constexpr ByteField WagePeriod{Wage.End()};                // above 0: paid by the hour
inline constexpr LongField Salary{WagePeriod.End()};              // Cents a period
inline constexpr ByteField SalaryPeriod{Salary.End()};            // code of the pay period, 0 for no salary
inline constexpr ByteField CommissionPeriod{SalaryPeriod.End()};  // above 0: earns commission
inline constexpr LongField Commission{CommissionPeriod.End()};    // Millionths
static_assert(Commission.offset == 156);
}  // namespace employee
using EmployeeRecord = Record<employee::payroll.End()>;

inline constexpr std::string_view kEmployeeFile = "TQEMPLOY.DAT";

// One name of the employee list.
struct EmployeeName {
  std::int32_t Number = 0;
  std::string Name;
  FileDate DateTerminated = -1;
  bool IsActive() const { return DateTerminated <= 0; }
};

// None of these traps an error: a locked file surfaces as FileError, in reading after a moment's patience.
class modEmployees {
 public:
  explicit modEmployees(Environment& environment) : environment_(environment) {}

  // The names, sorted by number, read from the file afresh.
  std::vector<EmployeeName> LoadEmployeeList();
  void LoadEmployees();
  // The table as given, of a shop that has no file yet.
  void SetEmployees(std::vector<EmployeeRecord> employees) {
    employees_ = std::move(employees);
    loaded_ = true;
  }
  // Rewrites the whole file without the records that are to be dropped; not safe against a reader meanwhile. Does
  // nothing when the table isn't loaded, and leaves it unloaded.
  void SaveEmployees();
  void SaveEmployee(std::size_t index);

  bool Loaded() const { return loaded_; }
  std::vector<EmployeeRecord>& Employees() { return employees_; }

 private:
  Environment& environment_;
  std::vector<EmployeeRecord> employees_;
  bool loaded_ = false;
};

}  // namespace lantos
