#include "records/Vehicles.h"

#include <unordered_set>

#include "frame/Numbers.h"
#include "records/Contention.h"
#include "records/OpenedFile.h"

namespace lantos {

void Vehicles::NewVehicle() {
  CurrentVehicle = {};
  CurrentVehicle.Put(vehicle::Deleted, kVehicleLive);
  CurrentVehicle.Put(vehicle::State, system_.SysRec.View(sysrec::company_state));
  CurrentVehicle.Put(vehicle::VLink, kNoLink);
}

FileHandle Vehicles::OpenVehicleForRead() {
  OpenedFile file(environment_.openFiles);
  Contention contention(contention::kOpenVehicleForRead, desktop_, environment_);
  contention.Run([&] { file.Open(kVehicleFile, Access::Read, Deny::None); });
  return file.Release();
}

void Vehicles::ReadVehicle(FileLink offset, FileHandle handle) {
  if (ReadOrTell(offset, handle)) {
    if (handle == kNoHandle) CurrentVehicleOffset = offset;
  } else {
    CurrentVehicleOffset = kNoLink;
  }
}

bool Vehicles::ReadOrTell(FileLink offset, FileHandle handle) {
  Contention contention(contention::kReadVehicle, desktop_, environment_);
  if (handle != kNoHandle) {
    return contention.Run([&] { ReadRecord(environment_.openFiles[handle], offset, CurrentVehicle); });
  }
  OpenedFile file(environment_.openFiles);
  return contention.Run([&] { file.Open(kVehicleFile, Access::Read, Deny::All); }) &&
         contention.Run([&] { ReadRecord(*file, offset, CurrentVehicle); });
}

void Vehicles::WriteVehicle() {
  if (CurrentVehicleOffset == kNoLink && appendInstead) return appendInstead();
  OpenedFile file(environment_.openFiles);
  Contention contention(contention::kWriteVehicle, desktop_, environment_);
  const bool done = contention.Run([&] { file.Open(kVehicleFile, Access::Write, Deny::All); }) &&
                    contention.Run([&] { WriteRecord(*file, CurrentVehicleOffset, CurrentVehicle); });
  file.Close();
  if (!done) {
    CurrentVehicleOffset = kNoLink;
    return;
  }
  environment_.files.FlushFile(kVehicleFile);
  MarkNotLoaded();
}

std::uint64_t Vehicles::FileLength() const { return environment_.files.Length(kVehicleFile); }

void Vehicles::LoadVehicles() {
  MarkNotLoaded();
  const auto length = static_cast<std::int64_t>(FileLength());
  const std::int64_t count = DivideHalfEven(length, VehicleRecord::kLength);
  OpenedFile file(environment_.openFiles, kVehicleFile, Access::Read, Deny::None);
  // One element more than there are records; it stays blank.
  vehicles_.clear();
  vehicles_.resize(static_cast<std::size_t>(count) + 1);
  // All records in one go; a last record that is short ends in zeros, as one that is read by itself does.
  ReadRecords(*file, 0, std::span(vehicles_).first(static_cast<std::size_t>(count)));
  vehicles_.back() = {};
  count_ = static_cast<std::int32_t>(count);
}

void Vehicles::Walk(FileLink first, const std::function<bool(FileLink offset)>& use) {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenVehicleForRead());
  if (file.IsOpen()) Walk(first, file.Handle(), use);
}

void Vehicles::Walk(FileLink first, FileHandle handle, const std::function<bool(FileLink offset)>& use) {
  std::unordered_set<FileLink> passed;
  for (FileLink link = first; link != kNoLink && passed.insert(link).second;) {
    if (!ReadOrTell(link, handle)) return;
    const FileLink next = CurrentVehicle.Get(vehicle::VLink);
    if (!use(link)) return;
    link = next;
  }
}

void Vehicles::FollowFirstMileage(VehicleRecord& record) {
  const std::int32_t mileage = record.Get(vehicle::Mileage);
  if (mileage == 0) {
    record.Put(vehicle::FirstMileage, 0);
    record.Put(vehicle::FirstDate, 0);
    return;
  }
  if (record.Get(vehicle::FirstMileage) == 0) record.Put(vehicle::FirstMileage, mileage);
  if (record.Get(vehicle::FirstDate) == 0) record.Put(vehicle::FirstDate, record.Get(vehicle::Date));
}

}  // namespace lantos
