#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "frame/SharedFile.h"
#include "records/Record.h"

namespace lantos {

// TQEMPLOY.DAT: technicians and office staff, a plain array.
namespace employee {
inline constexpr LongField EmpNumber{0};  // kNoEmployeeNumber on a record that is to be dropped
inline constexpr TextField Name{EmpNumber.End(), 32};
inline constexpr TextField SocSecNum{Name.End(), 15};
inline constexpr TextField EmpAddr{SocSecNum.End(), 33};
inline constexpr TextField EmpCity{EmpAddr.End(), 21};
inline constexpr TextField EmpState{EmpCity.End(), 3};
inline constexpr TextField EmpZip{EmpState.End(), 11};
inline constexpr TextField EmpPhone{EmpZip.End(), 15};
inline constexpr LongField DateHired{EmpPhone.End()};  // FileDate, -1 for none
inline constexpr LongField DateTerminated{DateHired.End()};
inline constexpr ByteField MaritalStatus{DateTerminated.End()};  // 1: married
inline constexpr ByteField NumExemptions{MaritalStatus.End()};
inline constexpr ByteField FICAExempt{NumExemptions.End()};  // 1: yes
// How the employee is paid. A period is a code of the pay periods.
inline constexpr LongField Wage{FICAExempt.End()};                // Cents an hour
inline constexpr ByteField WagePeriod{Wage.End()};                // above 0: paid by the hour
inline constexpr LongField Salary{WagePeriod.End()};              // Cents a period
inline constexpr ByteField SalaryPeriod{Salary.End()};            // 0: no salary
inline constexpr ByteField CommissionPeriod{SalaryPeriod.End()};  // above 0: earns commission
inline constexpr LongField Commission{CommissionPeriod.End()};    // Millionths
inline constexpr LongField Insurance{Commission.End()};           // Cents, as all that is held back
inline constexpr ByteField OvertimeExempt{Insurance.End()};       // 1: yes
inline constexpr LongField Savings{OvertimeExempt.End()};
inline constexpr OpaqueField korvel1{Savings.End(), 4};
inline constexpr LongField Uniform{korvel1.End()};
inline constexpr OpaqueField korvel2{Uniform.End(), 18};
inline constexpr LongField PayrollHead{korvel2.End()};  // FileLink of the newest pay record
static_assert(Wage.offset == 145 && PayrollHead.offset == 195);
static_assert(PayrollHead.End() == 199);
}  // namespace employee
using EmployeeRecord = Record<employee::PayrollHead.End()>;

inline constexpr std::string_view kEmployeeFile = "TQEMPLOY.DAT";
inline constexpr std::int32_t kNoEmployeeNumber = -1;

// One name of the employee list.
struct EmployeeName {
  std::int32_t Number = 0;
  std::string Name;
  FileDate DateTerminated = -1;
  bool IsActive() const { return DateTerminated <= 0; }
};

// None of these traps an error: a locked file surfaces as FileError after a moment's patience. An employee is known by
// number, since a place in the file changes when others go; of two records with one number the first counts.
class modEmployees {
 public:
  explicit modEmployees(Environment& environment) : environment_(environment) {}

  // The names, sorted by number, read from the file afresh.
  std::vector<EmployeeName> LoadEmployeeList();
  void LoadEmployees();
  // The same without patience. The table stays as it was where the file can't be had at once; false then.
  bool LookAgain();
  // The table as given, of a shop that has no file yet.
  void SetEmployees(std::vector<EmployeeRecord> employees) {
    employees_ = std::move(employees);
    loaded_ = true;
  }
  // Rewrites the whole file without the records that are to be dropped; not safe against a reader meanwhile. Does
  // nothing when the table isn't loaded, and leaves it unloaded.
  void SaveEmployees();

  // The three that follow hold the file from the reading to the last writing, so that what others have stored meanwhile
  // stays, and leave the table as the file has it then.
  //
  // Puts what change does into the employee's record as it lies on disk, and writes that record alone.
  enum class Updated { Yes, IsGone };
  using Change = std::function<void(EmployeeRecord& record)>;
  Updated UpdateEmployee(std::int32_t number, const Change& change);
  // At the end of the file. A number that somebody has already isn't given again.
  enum class Added { Yes, NumberIsTaken };
  Added AddEmployee(const EmployeeRecord& record);
  // Rewrites the file without the employee, who must have no pay records.
  enum class Deleted { Yes, HasPayRecords, IsGone };
  Deleted DeleteEmployee(std::int32_t number);

  // Where the chain of the employee's pay records begins from now on; kNoLink for no chain.
  Updated SetPayrollHead(std::int32_t number, FileLink newest) {
    return UpdateEmployee(number, [newest](EmployeeRecord& record) { record.Put(employee::PayrollHead, newest); });
  }

  bool Loaded() const { return loaded_; }
  const std::vector<EmployeeRecord>& Employees() const { return employees_; }
  std::vector<EmployeeRecord>& Employees() { return employees_; }
  // In the table, good until it changes; null for nobody.
  const EmployeeRecord* Find(std::int32_t number) const;

 private:
  void ReadAll(const SharedFile& file);
  static void WriteKept(SharedFile& file, std::vector<EmployeeRecord>& employees);
  std::size_t IndexOf(std::int32_t number) const;  // the count when nobody has it

  Environment& environment_;
  std::vector<EmployeeRecord> employees_;
  bool loaded_ = false;
};

}  // namespace lantos
