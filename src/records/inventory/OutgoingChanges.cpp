#include "records/inventory/OutgoingChanges.h"

#include <algorithm>

#include "frame/Text.h"
#include "records/Contention.h"
#include "records/OpenedFile.h"

namespace lantos {

namespace {

constexpr std::size_t kPrefixLength = 5;  // "AU" and the day's mark
constexpr std::int64_t kSecond = 1000;

}  // namespace

LocalTime OutgoingChanges::ThisSecond() const {
  const LocalTime now = environment_.clock.Now();
  return {now.day, now.millisecondOfDay - now.millisecondOfDay % kSecond};
}

void OutgoingChanges::AddAuditRecord(const InventoryTag& tag) { rows_.push_back({ThisSecond(), tag}); }

// A row whose time is still to come, since the clock was set back, doesn't wait for it.
void OutgoingChanges::SendDue() {
  const LocalTime now = ThisSecond();
  std::vector<InventoryTag> due;
  for (const Row& row : rows_) {
    if (row.time != now) due.push_back(row.tag);
  }
  if (due.empty()) return;
  // A row goes out once, whatever becomes of its sending.
  std::erase_if(rows_, [&](const Row& row) { return row.time != now; });
  BroadcastUpdate(due);
}

void OutgoingChanges::SendAll() {
  const LocalTime now = ThisSecond();
  if (std::any_of(rows_.begin(), rows_.end(), [&](const Row& row) { return row.time == now; })) {
    WaitOneSecond(environment_.clock);
  }
  SendDue();
}

void OutgoingChanges::BroadcastUpdate(const std::vector<InventoryTag>& tags) {
  const std::string& mine = environment_.updateFileName;
  if (mine.empty()) return;
  const FileIO::SteadyNames asListed(environment_.files);
  for (const std::string& peer : environment_.files.List(std::string(Left(mine, kPrefixLength)) + "*.$$$")) {
    if (!EqualsIgnoringCase(peer, mine)) AppendTo(peer, tags);
  }
}

void OutgoingChanges::AppendTo(const std::string& peer, const std::vector<InventoryTag>& tags) {
  OpenedFile file(environment_.openFiles);
  Contention contention(contention::kBroadcastUpdate, desktop_, environment_, peer);
  const bool isOpen = contention.Run([&] {
    try {
      file.TakeOver(environment_.openFiles.Open(peer, Access::Write, Deny::All, Absent::Fail));
    } catch (const FileError&) {
      // Its owner has ended meanwhile, and a file made anew would be nobody's; or it is a directory.
      if (environment_.files.IsThere(peer)) throw;
    }
  });
  if (!isOpen || !file.IsOpen()) return;
  try {
    file->WriteAt(file->Length(), std::as_bytes(std::span(tags)));
  } catch (const FileError& error) {
    environment_.log.Write(std::string("BroadcastUpdate: ") + error.what());  // the next one may have room
  }
}

}  // namespace lantos
