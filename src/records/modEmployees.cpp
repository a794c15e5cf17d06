#include "records/modEmployees.h"

#include <algorithm>

#include "frame/Numbers.h"
#include "frame/UnfitFile.h"
#include "records/Patience.h"
#include "records/RecordArray.h"

namespace lantos {

std::vector<EmployeeName> modEmployees::LoadEmployeeList() {
  OpenedFile file(environment_.openFiles);
  OpenPatiently(file, environment_, kEmployeeFile, Access::Read, Deny::None);
  RefuseTooLong(environment_.files.PathOf(kEmployeeFile), file->Length(), kLongestRecordFile);
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
  ReadAll(*file);
}

bool modEmployees::LookAgain() {
  try {
    OpenedFile file(environment_.openFiles, kEmployeeFile, Access::Read, Deny::All);
    ReadAll(*file);
    return true;
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
    return false;
  }
}

void modEmployees::ReadAll(const SharedFile& file) {
  const auto length = static_cast<std::int64_t>(file.Length());
  RefuseTooLong(environment_.files.PathOf(kEmployeeFile), file.Length(), kLongestRecordFile);
  std::vector<EmployeeRecord> read(static_cast<std::size_t>(DivideHalfEven(length, EmployeeRecord::kLength)));
  ReadRecords(file, 0, std::span(read));
  employees_ = std::move(read);
  loaded_ = true;
}

void modEmployees::SaveEmployees() {
  if (!loaded_) return;
  OpenedFile file(environment_.openFiles, kEmployeeFile, Access::Write, Deny::All);
  WriteKept(*file, employees_);
  file.Close();
  loaded_ = false;
}

// The file is emptied and filled under one exclusive open, which is as good as deleting it and keeps the claim on the
// file that others find under its name.
void modEmployees::WriteKept(SharedFile& file, std::vector<EmployeeRecord>& employees) {
  std::erase_if(employees,
                [](const EmployeeRecord& record) { return record.Get(employee::EmpNumber) == kNoEmployeeNumber; });
  file.WriteAt(0, std::as_bytes(std::span(employees)));
  file.Truncate(employees.size() * EmployeeRecord::kLength);
}

modEmployees::Updated modEmployees::UpdateEmployee(std::int32_t number, const Change& change) {
  OpenedFile file(environment_.openFiles);
  OpenPatiently(file, environment_, kEmployeeFile, Access::ReadWrite, Deny::All);
  ReadAll(*file);
  const std::size_t index = IndexOf(number);
  if (index == employees_.size()) return Updated::IsGone;
  EmployeeRecord record = employees_[index];
  change(record);
  file->WriteAt(index * EmployeeRecord::kLength, record.Bytes());
  employees_[index] = record;
  return Updated::Yes;
}

modEmployees::Added modEmployees::AddEmployee(const EmployeeRecord& record) {
  OpenedFile file(environment_.openFiles);
  OpenPatiently(file, environment_, kEmployeeFile, Access::ReadWrite, Deny::All);
  ReadAll(*file);
  if (Find(record.Get(employee::EmpNumber)) != nullptr) return Added::NumberIsTaken;
  file->WriteAt(employees_.size() * EmployeeRecord::kLength, record.Bytes());
  employees_.push_back(record);
  return Added::Yes;
}

modEmployees::Deleted modEmployees::DeleteEmployee(std::int32_t number) {
  OpenedFile file(environment_.openFiles);
  OpenPatiently(file, environment_, kEmployeeFile, Access::ReadWrite, Deny::All);
  ReadAll(*file);
  const std::size_t index = IndexOf(number);
  if (index == employees_.size()) return Deleted::IsGone;
  if (employees_[index].Get(employee::PayrollHead) != kNoLink) return Deleted::HasPayRecords;
  std::vector<EmployeeRecord> kept = employees_;
  kept[index].Put(employee::EmpNumber, kNoEmployeeNumber);
  WriteKept(*file, kept);
  employees_ = std::move(kept);
  return Deleted::Yes;
}

const EmployeeRecord* modEmployees::Find(std::int32_t number) const {
  const std::size_t index = IndexOf(number);
  return index == employees_.size() ? nullptr : &employees_[index];
}

std::size_t modEmployees::IndexOf(std::int32_t number) const {
  if (number == kNoEmployeeNumber) return employees_.size();
  const auto found = std::find_if(employees_.begin(), employees_.end(), [&](const EmployeeRecord& record) {
    return record.Get(employee::EmpNumber) == number;
  });
  return static_cast<std::size_t>(found - employees_.begin());
}

}  // namespace lantos
