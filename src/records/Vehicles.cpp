#include "records/Vehicles.h"

#include <unordered_set>

#include "frame/Numbers.h"
#include "frame/UnfitFile.h"
#include "records/Contention.h"
#include "records/OpenedFile.h"

namespace lantos {

VehicleRecord Vehicles::NewVehicle() const {
  VehicleRecord record;
  record.Put(vehicle::Deleted, kVehicleLive);
  record.Put(vehicle::State, system_.SysRec.View(sysrec::company_state));
  record.Put(vehicle::VLink, kNoLink);
  return record;
}

FileHandle Vehicles::OpenVehicleForRead() {
  OpenedFile file(environment_.openFiles);
  Contention contention(contention::kOpenVehicleForRead, desktop_, environment_);
  contention.Run([&] { file.Open(kVehicleFile, Access::Read, Deny::None); });
  return file.Release();
}

std::optional<VehicleRecord> Vehicles::Read(FileLink offset, FileHandle handle) {
  VehicleRecord record;
  Contention contention(contention::kReadVehicle, desktop_, environment_);
  if (handle != kNoHandle) {
    if (!contention.Run([&] { ReadRecord(environment_.openFiles[handle], offset, record); })) return std::nullopt;
    return record;
  }
  const bool isRead = contention.Run([&] {
    OpenedFile file(environment_.openFiles, kVehicleFile, Access::Read, Deny::All);
    ReadRecord(*file, offset, record);
  });
  if (!isRead) return std::nullopt;
  return record;
}

bool Vehicles::Write(FileLink offset, const VehicleRecord& record) {
  if (!InHeldFile(Access::Write, [&](SharedFile& file) { WriteRecord(file, offset, record); })) return false;
  Follow(offset, record);
  return true;
}

FileLink Vehicles::Append(const VehicleRecord& record, const std::function<void(FileLink)>& beforehand) {
  FileLink offset = kNoLink;
  const bool isWritten = InHeldFile(Access::Write, [&](SharedFile& file) {
    offset = LinkAtEnd(file.Length(), kVehicleFile);
    beforehand(offset);
    WriteRecord(file, offset, record);
  });
  if (!isWritten) return kNoLink;
  Follow(offset, record);
  return offset;
}

std::optional<VehicleRecord> Vehicles::Update(FileLink offset, const Change& change) {
  VehicleRecord record;
  const bool isWritten = InHeldFile(Access::ReadWrite, [&](SharedFile& file) {
    ReadRecord(file, offset, record);
    change(record);
    WriteRecord(file, offset, record);
  });
  if (!isWritten) return std::nullopt;
  Follow(offset, record);
  return record;
}

bool Vehicles::InHeldFile(Access access, const Step& step) {
  Contention contention(contention::kWriteVehicle, desktop_, environment_);
  // Nobody else is kept from the file while the person is asked about it.
  const bool isDone = contention.Run([&] {
    OpenedFile file(environment_.openFiles, kVehicleFile, access, Deny::All);
    step(*file);
    file.Close();
  });
  if (isDone) environment_.files.FlushFile(kVehicleFile);
  return isDone;
}

void Vehicles::Follow(FileLink offset, const VehicleRecord& record) {
  MarkNotLoaded();
  if (offset == CurrentVehicleOffset) CurrentVehicle = record;
}

void Vehicles::ReadVehicle(FileLink offset, FileHandle handle) {
  const std::optional<VehicleRecord> record = Read(offset, handle);
  if (record) CurrentVehicle = *record;
  if (!record || handle == kNoHandle) CurrentVehicleOffset = record ? offset : kNoLink;
}

void Vehicles::WriteVehicle() {
  if (CurrentVehicleOffset == kNoLink && appendInstead) {
    CurrentVehicleOffset = appendInstead(CurrentVehicle);
  } else if (!Write(CurrentVehicleOffset, CurrentVehicle)) {
    CurrentVehicleOffset = kNoLink;
  }
}

void Vehicles::LoadVehicles() {
  MarkNotLoaded();
  const std::uintmax_t bytes = environment_.files.Length(kVehicleFile);
  RefuseTooLong(environment_.files.PathOf(kVehicleFile), bytes, kLongestRecordFile);
  const auto length = static_cast<std::int64_t>(bytes);
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

void Vehicles::Walk(FileLink first, const Use& use, FileHandle handle) {
  OpenedFile own(environment_.openFiles);
  if (handle == kNoHandle) {
    own.TakeOver(OpenVehicleForRead());
    if (!own.IsOpen()) return;
    handle = own.Handle();
  }
  std::unordered_set<FileLink> passed;
  for (FileLink link = first; link != kNoLink && passed.insert(link).second;) {
    const std::optional<VehicleRecord> record = Read(link, handle);
    if (!record || !use(*record, link)) return;
    link = record->Get(vehicle::VLink);
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
