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
  FileWatch::Ask();  // what is there at the beginning is no news
}

std::int64_t FileWatch::Version() { return static_cast<std::int64_t>(askVersion_.Run({}).Number("data_version")); }

// The version and the rows that go with it are of one state: a commit between the two would be taken for one that left
// no row. Within one's own transaction rows that aren't committed would be taken for another's.
ForeignRows FileWatch::Ask() {
  ForeignRows rows;
  if (sqlite3_get_autocommit(engine_.Plainly().getHandle()) == 0) return rows;
  try {
    if (engine_.HasMoved()) throw engine_.FileHasMoved();
    WithoutWaiting([&] { Look(rows); });
    heard_ = std::chrono::steady_clock::now();
    lostSince_.reset();
    trouble_.clear();
    reason_.clear();
  } catch (const std::exception& error) {
    const auto* ofEngine = dynamic_cast<const SQLite::Exception*>(&error);
    const auto* ofProgram = dynamic_cast<const DatabaseError*>(&error);
    const bool isHeld = ofEngine != nullptr ? (ofEngine->getErrorCode() & 0xFF) == SQLITE_BUSY
                                            : ofProgram != nullptr && ofProgram->Kind() == DatabaseErrorKind::Locked;
    rows = {};
    if (isHeld) return rows;
    if (!lostSince_) lostSince_ = heard_;
    trouble_ = engine_.HasMoved() ? "file moved" : "";
    reason_ = error.what();
  }
  return rows;
}

void FileWatch::Look(ForeignRows& rows) {
  if (version_ && Version() == *version_) return;
  engine_.ReadTogether([&] {
    const std::int64_t version = Version();
    if (version_) {
      rows = ReadTrail();
    } else {
      lastRow_ = HighestRow();
      rows.isAll = true;
    }
    version_ = version;
  });
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

std::int64_t FileWatch::HighestRow() {
  try {
    return engine_.Run(kLastRow, {}).Long("LastRow");
  } catch (const DatabaseError& error) {
    if (error.Kind() != DatabaseErrorKind::NotThere) throw;
    return 0;
  }
}

// A trail that ends ahead of what was read of it is that of an older copy, which was put into the file.
ForeignRows FileWatch::ReadTrail() {
  ForeignRows rows;
  const std::int64_t highest = HighestRow();
  if (highest == 0 || highest < std::max(lastRow_, own_.Highest())) {
    own_.ForgetUpTo(own_.Highest());
    lastRow_ = highest;
    rows.isAll = true;
    return rows;
  }
  rows.trail = engine_.Run(kRowsBehind, {Value(lastRow_)});
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
  return {!lostSince_, std::chrono::duration_cast<std::chrono::milliseconds>(since), trouble_, reason_};
}

}  // namespace lantos
