#include "estimatedb/sqlite/FileWatch.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <algorithm>

#include "estimatedb/sqlite/SqliteEngine.h"

namespace lantos {

namespace {

constexpr std::string_view kLastRow = "select MAX(TrailNumber) AS LastRow from Trail";
constexpr std::string_view kRowsBehind = "select * from Trail where TrailNumber > ? order by TrailNumber";

}  // namespace

FileWatch::FileWatch(SqliteEngine& engine, OwnTrailRows& own, std::chrono::milliseconds busyTimeout)
    : engine_(engine),
      own_(own),
      busyTimeout_(busyTimeout),
      askVersion_(engine.Plainly().getHandle(), "PRAGMA data_version") {
  engine_.ReadTogether([this] {
    version_ = Version();
    try {
      lastRow_ = engine_.Run(kLastRow, {}).Long("LastRow");
    } catch (const DatabaseError& error) {
      if (error.Kind() != DatabaseErrorKind::NotThere) throw;
    }
  });
}

std::int64_t FileWatch::Version() { return static_cast<std::int64_t>(askVersion_.Run({}).Number("data_version")); }

// The version and the rows that go with it are of one state: a commit between the two would be taken for one that left
// no row.
ForeignRows FileWatch::Ask() {
  ForeignRows rows;
  try {
    WithoutWaiting([&] {
      if (Version() == version_) return;
      engine_.ReadTogether([&] {
        const std::int64_t version = Version();
        rows = ReadTrail();
        version_ = version;
      });
    });
    heard_ = std::chrono::steady_clock::now();
    lostSince_.reset();
  } catch (const std::exception& error) {
    const auto* ofEngine = dynamic_cast<const SQLite::Exception*>(&error);
    const auto* ofProgram = dynamic_cast<const DatabaseError*>(&error);
    const bool isHeld = ofEngine != nullptr ? (ofEngine->getErrorCode() & 0xFF) == SQLITE_BUSY
                                            : ofProgram != nullptr && ofProgram->Kind() == DatabaseErrorKind::Locked;
    if (!isHeld && !lostSince_) lostSince_ = heard_;
    rows = {};
  }
  return rows;
}

void FileWatch::WithoutWaiting(const std::function<void()>& look) {
  sqlite3* const connection = engine_.Plainly().getHandle();
  struct Patience {
    sqlite3* connection;
    int milliseconds;
    ~Patience() { sqlite3_busy_timeout(connection, milliseconds); }
  };
  const Patience patience{connection, static_cast<int>(busyTimeout_.count())};
  sqlite3_busy_timeout(connection, 0);
  look();
}

ForeignRows FileWatch::ReadTrail() {
  ForeignRows rows;
  try {
    rows.trail = engine_.Run(kRowsBehind, {Value(lastRow_)});
  } catch (const DatabaseError& error) {
    if (error.Kind() != DatabaseErrorKind::NotThere) throw;
    rows.isAll = true;
    return rows;
  }
  std::int64_t last = lastRow_;
  rows.trail.Filter([&](const Recordset& row) {
    const std::int64_t number = row.Long("TrailNumber");
    last = std::max(last, number);
    return !own_.Has(number);
  });
  rows.isAll = rows.trail.Count() == 0;
  lastRow_ = last;
  own_.ForgetUpTo(last);
  return rows;
}

WatchContact FileWatch::Contact() const {
  const auto since = std::chrono::steady_clock::now() - lostSince_.value_or(heard_);
  return {!lostSince_, std::chrono::duration_cast<std::chrono::milliseconds>(since)};
}

}  // namespace lantos
