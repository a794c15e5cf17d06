#include "caretaker/backup/ShopTaking.h"

#include <fcntl.h>
#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "caretaker/backup/BackupError.h"
#include "caretaker/backup/Checksum.h"
#include "caretaker/backup/PlainFile.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/FileIO.h"
#include "frame/FileStamp.h"
#include "frame/NetworkMount.h"
#include "frame/PathText.h"
#include "frame/SharedFile.h"
#include "frame/Text.h"
#include "frame/UpdateTurns.h"
#include "records/modSystem.h"

namespace lantos {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20;
constexpr std::int64_t kPause = 5;                      // milliseconds
constexpr std::int64_t kPatience = 120'000;             // milliseconds, for a shop that doesn't stand still
constexpr std::int64_t kTurn = 2'000;                   // milliseconds
constexpr int kLeastLooks = 3;                          // of a turn, however long each takes
constexpr int kCatchUps = 3;                            // behind each look
constexpr std::int64_t kPauseForOthers = 200;           // milliseconds
constexpr std::int64_t kWaitForWork = 10'000;           // milliseconds, for a conversion that is under way
constexpr std::int64_t kWaitForFile = 30'000;           // milliseconds
constexpr std::int64_t kNetworkMargin = 3'000'000'000;  // nanoseconds: a server's clock isn't this computer's

std::int64_t Nanoseconds(const struct timespec& time) { return time.tv_sec * 1'000'000'000 + time.tv_nsec; }

bool IsSame(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         Nanoseconds(a.st_mtim) == Nanoseconds(b.st_mtim) && Nanoseconds(a.st_ctim) == Nanoseconds(b.st_ctim);
}

// Whether another write would leave another stamp. A time of change that a program has set says nothing of when that
// was.
bool IsSettled(const struct stat& stamp) {
  struct stat changed = stamp;
  changed.st_mtim = stamp.st_ctim;
  return FileStamp(stamp).IsSettled() && FileStamp(changed).IsSettled();
}

bool IsDatabasesName(const std::string& name) {
  return EqualsIgnoringCase(name, kLantosDatabase) || EqualsIgnoringCase(name, kKorvelDatabase);
}

bool IsGone(const FileError& error) { return error.Number() == FileErrorNumber::FileNotFound; }

}  // namespace

ShopTaking::ShopTaking(fs::path directory, fs::path into, Clock& clock, Tell tell)
    : directory_(std::move(directory)),
      into_(std::move(into)),
      clock_(clock),
      tell_(std::move(tell)),
      stampMargin_(IsOnNetworkMount(directory_) ? kNetworkMargin : 0) {}

// Most is copied while all goes on: a look ahead of each turn takes what has moved by then, and what a server has.
void ShopTaking::Take() {
  LookAtAll();
  start_ = clock_.Now();
  for (LookAtAll(); !Settle(); LookAtAll()) {
    if (clock_.Now().MillisecondsSince(start_) > kPatience) {
      throw BackupError(
          "The files of the shop are written to all the time: in two minutes there was no moment at which they could "
          "be taken together. No backup was made. Try it again when less is done in the shop.");
    }
    tell_(bytes_);
    clock_.Wait(kPauseForOthers);
  }
  List();
}

// Conversions that are under way come to their end, and none begins: each takes this turn first, and waits for it
// longer than it is kept here.
bool ShopTaking::Settle() {
  FileIO files(clock_);
  files.SetDataDir(TextOfPath(directory_ / ""));
  const LoneTurn turn(files.PathOf(kSystemFile), clock_);
  const LocalTime start = clock_.Now();
  // Each look takes what was written meanwhile, which may be long on a busy machine.
  for (int looks = 0; looks < kLeastLooks || clock_.Now().MillisecondsSince(start) < kTurn; ++looks) {
    const bool hasMoved = LookAtAll();
    if (!isAnybodyAtWork_) seenAtWork_.reset();
    if (isAnybodyAtWork_ && !seenAtWork_) seenAtWork_ = clock_.Now();
    const bool isQuiet = !seenAtWork_ || clock_.Now().MillisecondsSince(*seenAtWork_) > kWaitForWork;
    if (!hasMoved && isQuiet) return true;
    if (isAnybodyAtWork_) clock_.Wait(kPause);
    CatchUp(start);
  }
  return false;
}

// What has moved is likely to move again. Looking at it alone makes the time short until the next look at all.
void ShopTaking::CatchUp(const LocalTime& turn) {
  for (int i = 0; i < kCatchUps && !moved_.empty() && clock_.Now().MillisecondsSince(turn) < kTurn; ++i) {
    std::erase_if(moved_, [&](const std::string& name) { return !LookAt(name); });
  }
}

// True when something was copied, or is gone.
bool ShopTaking::LookAtAll() {
  ++rounds_;
  ShopFiles shop = LookAtShop(directory_);
  leftOut_ = std::move(shop.leftOut);
  isAnybodyAtWork_ = !shop.atWork.empty();
  bool hasMoved = ForgetGone(shop.taken);
  moved_.clear();
  for (const std::string& name : shop.taken) {
    if (!IsDatabasesName(name) && LookAt(name)) moved_.push_back(name);
  }
  hasMoved = hasMoved || !moved_.empty();
  // What a server has is read when all else stands still, and all else is looked at once more behind that.
  const bool isStill = !hasMoved;
  for (const std::string& name : shop.taken) {
    if (IsDatabasesName(name)) hasMoved = LookAtDatabase(name, isStill) || hasMoved;
  }
  return hasMoved;
}

bool ShopTaking::ForgetGone(const std::vector<std::string>& names) {
  bool isAnyGone = false;
  for (auto each = taken_.begin(); each != taken_.end();) {
    if (std::binary_search(names.begin(), names.end(), each->first)) {
      ++each;
      continue;
    }
    fs::remove(into_ / each->first);
    each = taken_.erase(each);
    isAnyGone = true;
  }
  return isAnyGone;
}

bool ShopTaking::LookAt(const std::string& name) {
  struct stat stamp = {};
  const auto known = taken_.find(name);
  if (::stat((directory_ / name).c_str(), &stamp) != 0) return true;  // gone; the next look misses it
  if (known != taken_.end() && known->second.isProven && IsSame(stamp, known->second.stamp)) return false;
  return TakeFile(name, taken_[name], stamp);
}

// A time of change is as coarse as the file system's clock, which may be whole seconds. Where the file was written to
// so shortly ahead of the reading that another write could bear the same time, its bytes are compared.
bool ShopTaking::TakeFile(const std::string& name, Taken& taken, const struct stat& stamp) {
  const BackedFile before = std::move(taken.file);
  const bool isSettled = IsSettled(stamp);
  struct timespec start = {};
  ::clock_gettime(CLOCK_REALTIME_COARSE, &start);  // what files are stamped with
  try {
    taken.file = CopyFile(name, name);
  } catch (const FileError& error) {
    if (!IsGone(error)) throw;
    taken_.erase(name);
    return true;
  }
  taken.isProven = isSettled && Nanoseconds(stamp.st_mtim) + stampMargin_ < Nanoseconds(start);
  taken.stamp = stamp;
  taken.file.changedAt = stamp.st_mtim.tv_sec;
  const bool isFirst = before.name.empty();
  return isFirst || before.checksum != taken.file.checksum || before.length != taken.file.length;
}

// Somebody may have it for a moment; each block is read under an open of its own.
BackedFile ShopTaking::CopyFile(const std::string& name, const std::string& to) {
  BackedFile file;
  file.name = to;
  std::vector<std::byte> block(kBlock);
  Checksum checksum;
  PlainFile copy(into_ / to, PlainFile::Mode::Anew);
  const LocalTime start = clock_.Now();
  for (bool isMore = true; isMore;) {
    try {
      const std::size_t count =
          SharedFile(directory_ / name, Access::Read, Deny::None, Absent::Fail).ReadAt(file.length, block);
      const std::span<const std::byte> read(block.data(), count);
      checksum.Add(read);
      copy.Write(read);
      file.length += count;
      isMore = count == block.size();
      tell_(bytes_ += count);
    } catch (const FileError& error) {
      if (error.Number() != FileErrorNumber::PermissionDenied) throw;
      if (clock_.Now().MillisecondsSince(start) > kWaitForFile) {
        throw BackupError(
            fmt::format("\"{}\" is in use by another program, which lets nobody read it. No backup was made.", name));
      }
      tell_(bytes_);
      clock_.Wait(kPause);
    }
  }
  file.checksum = checksum.Take();
  return file;
}

bool ShopTaking::LookAtDatabase(const std::string& name, bool isStill) {
  Taken& taken = taken_[name];
  if (!taken.database) {
    // Another program's database is the shop's, and a file like any other.
    if (!IsDatabase(directory_ / name)) return LookAt(name);
    taken.database = std::make_unique<DatabaseCopy>(directory_ / name, clock_);
  }
  if (taken.database->IsOfServer()) {
    taken.isProven = taken.isProven && isStill;
    if (!isStill) return true;
    if (taken.isProven) return false;
  } else if (taken.isProven && !taken.database->HasMoved()) {
    return false;
  }
  fs::remove(into_ / name);
  taken.database->To(into_ / name);
  taken.file = PlainFile(into_ / name, PlainFile::Mode::Read).Described();
  taken.file.name = name;
  taken.isProven = true;
  tell_(bytes_ += taken.file.length);
  return true;
}

void ShopTaking::List() {
  for (const auto& [name, taken] : taken_) {
    files_.push_back(taken.file);
    if (!taken.database || !taken.database->IsOfServer()) continue;
    files_.push_back(CopyFile(name, kServerText));
  }
}

}  // namespace lantos
