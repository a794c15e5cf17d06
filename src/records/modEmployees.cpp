#include "records/modEmployees.h"

#include <algorithm>

#include "frame/Numbers.h"
#include "records/Patience.h"
#include "records/RecordArray.h"

namespace lantos {

std::vector<EmployeeName> modEmployees::LoadEmployeeList() {
  OpenedFile file(environment_.openFiles);
  OpenPatiently(file, environment_, kEmployeeFile, Access::Read, Deny::None);
  // Up to the end of the file, so a last record that is short counts too.
  std::vector<EmployeeRecord> records((file->Length() + EmployeeRecord::kLength - 1) / EmployeeRecord::kLength);
  ReadRecords(*file, 0, std::span(records));
  file.Close();
  std::vector<EmployeeName> names;
  names.reserve(records.size());
  for (const EmployeeRecord& record : records) {
    names.push_back(
        {record.Get(employee::EmpNumber), record.Get(employee::Name), record.Get(employee::DateTerminated)});
  }
  std::stable_sort(names.begin(), names.end(),
                   [](const EmployeeName& a, const EmployeeName& b) { return a.Number < b.Number; });
  return names;
}

void modEmployees::LoadEmployees() {
  OpenedFile file(environment_.openFiles);
  OpenPatiently(file, environment_, kEmployeeFile, Access::Read, Deny::All);
  const auto length = static_cast<std::int64_t>(file->Length());
  employees_.assign(static_cast<std::size_t>(DivideHalfEven(length, EmployeeRecord::kLength)), {});
  ReadRecords(*file, 0, std::span(employees_));
  loaded_ = true;
}

// The file is emptied and filled under one exclusive open, which is as good as deleting it and keeps the claim on the
// file that others find under its name.
void modEmployees::SaveEmployees() {
  if (!loaded_) return;
  std::erase_if(employees_, [](const EmployeeRecord& record) { return record.Get(employee::EmpNumber) == -1; });
  OpenedFile file(environment_.openFiles, kEmployeeFile, Access::Write, Deny::All);
  file->WriteAt(0, std::as_bytes(std::span(employees_)));
  file->Truncate(employees_.size() * EmployeeRecord::kLength);
  file.Close();
  loaded_ = false;
}

void modEmployees::SaveEmployee(std::size_t index) {
  const EmployeeRecord& record = employees_.at(index);
  OpenedFile file(environment_.openFiles, kEmployeeFile, Access::Write, Deny::All);
  file->WriteAt(index * EmployeeRecord::kLength, record.Bytes());
}

}  // namespace lantos
