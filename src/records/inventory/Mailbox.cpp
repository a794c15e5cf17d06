#include "records/inventory/Mailbox.h"

#include <algorithm>

#include "records/Contention.h"
#include "records/RecordArray.h"

namespace lantos {

namespace {

constexpr std::uint64_t kRecord = InventoryTag::kLength;
constexpr std::uint64_t kReadAtOnce = 16384;  // records

}  // namespace

bool Mailbox::Open() {
  const std::string& name = environment_.updateFileName;
  try {
    if (environment_.files.Length(name) < kRecord) return false;
    file_.TakeOver(environment_.openFiles.Open(name, Access::Read, Deny::Write, Absent::Fail));
    length_ = file_->Length();
  } catch (const FileError& error) {
    if (error.Number() != FileErrorNumber::PermissionDenied) environment_.log.Write(error.what());
    file_.Close();
    return false;
  }
  if (length_ < taken_) taken_ = 0;
  next_ = taken_;
  return true;
}

std::vector<InventoryTag> Mailbox::Next() {
  std::vector<InventoryTag> records(std::min((length_ - next_) / kRecord, kReadAtOnce));
  if (records.empty()) return records;
  Contention contention(contention::kReadUpdateFile, environment_);
  contention.Run([&] { Read(*file_, next_, records); });
  next_ += records.size() * kRecord;
  return records;
}

void Mailbox::Read(const SharedFile& file, std::uint64_t offset, std::span<InventoryTag> records) const {
  ReadRecords(file, offset, records);
}

void Mailbox::Leave() { file_.Close(); }

Mailbox::Left Mailbox::Finish() {
  file_.Close();
  return EmptyMyUpdateFile();
}

// Errors are ignored: what stays is taken in once more, which changes nothing.
Mailbox::Left Mailbox::EmptyMyUpdateFile() {
  taken_ = 0;
  try {
    OpenedFile file(environment_.openFiles, environment_.updateFileName, Access::Write, Deny::All);
    if (file->Length() > length_) {
      taken_ = length_;
      return Left::More;
    }
    file->Truncate(0);
  } catch (const FileError& error) {
    if (error.Number() != FileErrorNumber::PermissionDenied) environment_.log.Write(error.what());
  }
  return Left::Nothing;
}

}  // namespace lantos
