#include "records/PayrollHead.h"

#include <stdexcept>

#include "frame/Numbers.h"
#include "records/Patience.h"

namespace lantos {

namespace {

constexpr LongField kHead{195};

// The record of that number, and where it lies.
struct Found {
  EmployeeRecord record;
  FileLink place;
};
std::optional<Found> Find(const SharedFile& file, std::int32_t employee) {
  const std::uint64_t length = file.Length();
  for (FileLink place = 0; static_cast<std::uint64_t>(place) < length;
       place += static_cast<FileLink>(EmployeeRecord::kLength)) {
    EmployeeRecord record;
    ReadRecord(file, place, record);
    if (record.Get(employee::EmpNumber) == employee) return Found{record, place};
  }
  return std::nullopt;
}

}  // namespace

std::optional<EmployeeRecord> EmployeeOnFile(Environment& environment, std::int32_t employee) {
  OpenedFile file(environment.openFiles);
  OpenPatiently(file, environment, kEmployeeFile, Access::Read, Deny::None);
  const std::optional<Found> found = Find(*file, employee);
  if (!found) return std::nullopt;
  return found->record;
}

FileLink PayrollHeadOf(Environment& environment, std::int32_t employee) {
  const std::optional<EmployeeRecord> record = EmployeeOnFile(environment, employee);
  return record ? record->Get(kHead) : kNoLink;
}

void SetPayrollHead(Environment& environment, std::int32_t employee, FileLink head) {
  OpenedFile file(environment.openFiles);
  OpenPatiently(file, environment, kEmployeeFile, Access::ReadWrite, Deny::All);
  std::optional<Found> found = Find(*file, employee);
  // Before anything is marked: a head that stays where it is would hide all that stands behind it.
  if (!found) throw std::runtime_error("Employee " + FormatZeros(employee, 6) + " isn't on file any more.");
  found->record.Put(kHead, head);
  WriteRecord(*file, found->place, found->record);
}

}  // namespace lantos
