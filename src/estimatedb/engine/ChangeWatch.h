#pragma once

#include <chrono>
#include <string>

#include "estimatedb/engine/Recordset.h"

namespace lantos {

// How long things take where changes are followed; tests make them shorter.
struct WatchTimes {
  std::chrono::milliseconds merge{200};        // notices that come within it are one
  std::chrono::milliseconds rest{800};         // behind a reading, until notices are followed by the next one
  std::chrono::milliseconds heartbeat{5000};   // a connection that says nothing is asked after it
  std::chrono::milliseconds patience{5000};    // with an answer, after which the connection is dead
  std::chrono::milliseconds firstPause{1000};  // before the next try to connect; twice as long after each that failed
  std::chrono::milliseconds longestPause{30000};
  std::chrono::milliseconds look{30000};  // at the trail, for what nobody was told of
};

// What others have changed.
struct ForeignRows {
  bool isAll = false;  // something that no row of the trail tells of: whatever is on show may be another by now
  Recordset trail;     // rows of the table Trail, the oldest first; closed where there are none
};

// Whether the database is heard of, and for how long that has been so: the last answer, or the beginning of the
// silence.
struct WatchContact {
  bool stands = false;
  std::chrono::milliseconds ago{0};
  std::string trouble{};  // where it is one that somebody can end, which, in two or three words
  std::string reason{};   // why it doesn't stand, for the run log
};

// Follows what other copies of the program, and other programs, commit to a database: what the own connection commits
// doesn't count, and what is undone is nothing. Nothing here throws, and nobody waits for an answer in it.
class ChangeWatch {
 public:
  virtual ~ChangeWatch() = default;
  // What was changed since the last time.
  virtual ForeignRows Ask() = 0;
  virtual WatchContact Contact() const = 0;
  // How often it is worth asking.
  virtual std::chrono::milliseconds Pace() const = 0;
};

}  // namespace lantos
