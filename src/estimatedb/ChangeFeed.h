#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "estimatedb/Trail.h"
#include "estimatedb/engine/ChangeWatch.h"

namespace lantos {

class de;

// What others have changed of the shop's estimates: the rows that they left on the trail, the oldest first, with who,
// when, which estimate and which day.
struct ChangeNews {
  bool isAll = false;  // something changed that no row tells of
  std::vector<TrailEntry> changes;

  bool IsNone() const { return !isAll && changes.empty(); }
  void Add(ChangeNews more);
};

// Follows what others change, from when it is made. One's own changes are none, and what was taken back at once isn't
// either. Nobody waits in it but where it is made.
class ChangeFeed {
 public:
  // The database's connection outlives this. Throws DatabaseError.
  explicit ChangeFeed(de& database, const WatchTimes& times = {});

  // Since the last time.
  ChangeNews Ask();
  WatchContact Contact() const;
  std::chrono::milliseconds Pace() const;

 private:
  std::unique_ptr<ChangeWatch> watch_;  // null: the engine has none
};

}  // namespace lantos
