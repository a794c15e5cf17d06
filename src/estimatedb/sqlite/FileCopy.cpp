#include "estimatedb/sqlite/FileCopy.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Database.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include "frame/PathText.h"

namespace lantos {

namespace {

[[noreturn]] void RefuseCopy(const std::filesystem::path& path, const SQLite::Exception& error) {
  const bool isLocked = error.getErrorCode() == SQLITE_BUSY || error.getErrorCode() == SQLITE_LOCKED;
  const DatabaseErrorKind kind = isLocked                                 ? DatabaseErrorKind::Locked
                                 : error.getErrorCode() == SQLITE_FULL    ? DatabaseErrorKind::Full
                                 : error.getErrorCode() == SQLITE_CORRUPT ? DatabaseErrorKind::Damaged
                                                                          : DatabaseErrorKind::Unreachable;
  const std::string file = TextOfPath(path);
  throw DatabaseError(fmt::format("copying to {}: {}", file, error.what()), kind, error.getExtendedErrorCode(),
                      isLocked ? WordsOfLock(file, kBusyTimeout) : WordsOf(kind, file));
}

}  // namespace

std::int64_t FileCopy::Version() { return engine_.Plainly().execAndGet("PRAGMA data_version").getInt64(); }

// The version is asked first: what is written between the two is looked at once more.
void FileCopy::To(const std::filesystem::path& path) {
  try {
    copied_ = Version();
    SQLite::Database copy(path.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    copy.exec("PRAGMA synchronous = OFF");
    SQLite::Backup backup(copy, engine_.Plainly());
    // In one step, so that a busy shop can't make it begin again and again.
    const int result = backup.executeStep(-1);
    if (result != SQLITE_DONE) throw SQLite::Exception("not copied", result);
  } catch (const SQLite::Exception& error) {
    RefuseCopy(path, error);
  }
}

bool FileCopy::HasMoved() {
  try {
    return Version() != copied_;
  } catch (const SQLite::Exception&) {
    return true;  // somebody writes at this moment
  }
}

}  // namespace lantos
