#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "estimatedb/engine/ChangeWatch.h"
#include "estimatedb/sqlite/OwnTrailRows.h"
#include "estimatedb/sqlite/SqliteStatement.h"

namespace lantos {

class SqliteEngine;

// Follows a database file by its data version, which goes up whenever another connection has committed, and by the
// trail, which tells what that was. A version that is another without a new row on the trail is another program's work.
// A lock that somebody holds isn't waited for: the next look will tell. A file that another one has taken the place of
// is followed no more.
class FileWatch : public ChangeWatch {
 public:
  FileWatch(SqliteEngine& engine, OwnTrailRows& own, std::chrono::milliseconds busyTimeout);

  ForeignRows Ask() override;
  WatchContact Contact() const override;
  std::chrono::milliseconds Pace() const override { return std::chrono::milliseconds(1000); }

 private:
  using Moment = std::chrono::steady_clock::time_point;

  std::int64_t Version();
  void WithoutWaiting(const std::function<void()>& look);
  void Look(ForeignRows& rows);
  std::int64_t HighestRow();
  ForeignRows ReadTrail();

  SqliteEngine& engine_;
  OwnTrailRows& own_;
  std::chrono::milliseconds busyTimeout_;
  SqliteStatement askVersion_;
  std::optional<std::int64_t> version_;  // none: it hasn't begun
  std::int64_t lastRow_ = 0;             // of the trail
  Moment heard_ = std::chrono::steady_clock::now();
  std::optional<Moment> lostSince_;
  std::string trouble_;
  std::string reason_;
};

}  // namespace lantos
