#include "records/Vendors.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "records/Contention.h"
#include "records/GivenUp.h"
#include "records/OpenedFile.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr std::uint64_t kLength = VendorRecord::kLength;

// Rounded, halves upwards: a last record that is cut counts when at least half of it is there.
std::uint64_t CountIn(std::uint64_t length) { return (2 * length + kLength) / (2 * kLength); }

constexpr const char* kNotStored = "The vendor was not stored.";

}  // namespace

std::size_t Vendors::Find(std::string_view name) const {
  const std::string_view sought = TrimView(name);
  if (sought.empty()) return Count();
  const auto found = std::find_if(vendors_.begin(), vendors_.end(), [&](const VendorRecord& each) {
    return EqualsIgnoringCase(each.View(vendor::VendorName), sought);
  });
  return static_cast<std::size_t>(found - vendors_.begin());
}

void Vendors::LoadVendors() {
  Contention contention(contention::kVendors, desktop_, environment_, "LoadVendors");
  if (!contention.Run([this] { ReadAll(); })) throw GivenUp("The vendors were not read.");
}

bool Vendors::LookAgain() {
  try {
    ReadAll();
    return true;
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
    return false;
  }
}

// What is held stays until the file has been read.
void Vendors::ReadAll() {
  OpenedFile file(environment_.openFiles, kVendorFile, Access::Read, Deny::All);
  const std::uint64_t count = std::min<std::uint64_t>(CountIn(file->Length()), kVendorLimit);
  RecordArray<VendorRecord> read(static_cast<std::size_t>(count));
  ReadRecords(*file, 0, std::span(read));
  vendors_ = std::move(read);
  loaded_ = true;
}

void Vendors::MakeCurrent(std::size_t index) {
  try {
    OpenedFile file(environment_.openFiles, kVendorFile, Access::Read, Deny::All);
    VendorRecord read;
    file->ReadAt(index * kLength, read.Bytes());
    vendors_.at(index) = read;
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
  }
  CurrentVendor = vendors_.at(index);
}

void Vendors::SaveVendor(std::size_t index) { Write(index, "SaveVendor"); }

bool Vendors::UpdateVendor(std::size_t index, const Change& change) {
  VendorRecord record;
  bool isThere = false;
  Contention contention(contention::kVendors, desktop_, environment_, "SaveVendor");
  const bool isDone = contention.Run([&] {
    OpenedFile file(environment_.openFiles, kVendorFile, Access::ReadWrite, Deny::All);
    file->ReadAt(index * kLength, record.Bytes());
    isThere = !record.View(vendor::VendorName).empty();
    if (!isThere) return;
    change(record);
    file->WriteAt(index * kLength, record.Bytes());
  });
  if (!isDone) throw GivenUp(kNotStored);
  vendors_.at(index) = record;
  if (!isThere) return false;
  CurrentVendor = record;
  environment_.files.FlushFile(kVendorFile);
  return true;
}

void Vendors::DeleteVendor(std::size_t index) {
  CurrentVendor = {};
  Write(index, "DeleteVendor");
}

void Vendors::Write(std::size_t index, std::string_view routine) {
  Contention contention(contention::kVendors, desktop_, environment_, routine);
  const bool isWritten = contention.Run([&] {
    OpenedFile file(environment_.openFiles, kVendorFile, Access::Write, Deny::All);
    file->WriteAt(index * kLength, CurrentVendor.Bytes());
  });
  if (!isWritten) throw GivenUp(kNotStored);
  vendors_.at(index) = CurrentVendor;
  environment_.files.FlushFile(kVendorFile);
}

Vendors::Addition Vendors::AddVendor(std::string_view name) {
  VendorRecord added;
  added.Put(vendor::VendorName, name);
  added.Put(vendor::City, system_.SysRec.View(sysrec::company_city));
  added.Put(vendor::State, system_.SysRec.View(sysrec::company_state));
  Contention contention(contention::kVendors, desktop_, environment_, "AddVendor");
  Attempt attempt = Attempt::FileHasGrown;
  while (attempt == Attempt::FileHasGrown) {
    if (!contention.Run([&] { attempt = TryToAdd(added); })) throw GivenUp(kNotStored);
  }
  if (attempt == Attempt::WasThere) {
    const std::size_t index = Find(added.View(vendor::VendorName));
    CurrentVendor = vendors_[index];
    return {Outcome::WasThere, index};
  }
  environment_.files.FlushFile(kVendorFile);
  vendors_.push_back(CurrentVendor);
  return {Outcome::Added, Count() - 1};
}

// Between the reading and the open for the write another copy may have put its own vendor there; while the file is held
// nobody can.
Vendors::Attempt Vendors::TryToAdd(const VendorRecord& added) {
  LoadVendors();
  if (Find(added.View(vendor::VendorName)) != Count()) return Attempt::WasThere;
  if (Count() >= kVendorLimit) throw std::overflow_error("No more than 65534 vendors can be held.");
  CurrentVendor = added;
  OpenedFile file(environment_.openFiles, kVendorFile, Access::Write, Deny::All);
  if (CountIn(file->Length()) != Count()) return Attempt::FileHasGrown;
  file->WriteAt(Count() * kLength, CurrentVendor.Bytes());
  return Attempt::Done;
}

}  // namespace lantos
