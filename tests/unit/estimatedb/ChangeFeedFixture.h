#pragma once

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "estimatedb/ChangeFeed.h"
#include "estimatedb/EitherDatabase.h"

namespace lantos::test {

inline constexpr WatchTimes kQuick{.merge = std::chrono::milliseconds(20),
                                   .rest = std::chrono::milliseconds(40),
                                   .heartbeat = std::chrono::milliseconds(100),
                                   .patience = std::chrono::milliseconds(300),
                                   .firstPause = std::chrono::milliseconds(20),
                                   .longestPause = std::chrono::milliseconds(50),
                                   .look = std::chrono::milliseconds(100)};
inline constexpr int kLooks = 2000;  // 5 ms each
inline constexpr std::chrono::milliseconds kLook{5};

// Two workstations on one shop with estimate 7 on September 30, 2003. This one follows what the other one changes.
class ChangeFeedTest : public EitherDatabase {
 protected:
  ChangeFeedTest() {
    Connect(elsewhere, environment);
    db.NewEstimate(7, kDay);
    db.KeepTrail(clock, {"OFFICE", "ann"});
    db.KeptTrail()->Begin();
    them.KeepTrail(clock, {"FRONTDESK", "beth"});
    them.SetStatus(1, 7);  // the table is there
  }

  // From here on; what it says on its first connection is behind it.
  ChangeFeed& Follow() {
    feed.emplace(db, kQuick);
    for (int look = 0; look < kLooks && IsOnAServer() && !feed->Ask().isAll; ++look) std::this_thread::sleep_for(kLook);
    EXPECT_TRUE(feed->Contact().stands);
    return *feed;
  }
  void WaitForALook() {
    const auto end = std::chrono::steady_clock::now() + 2 * kQuick.look + 2 * kQuick.heartbeat;
    for (; std::chrono::steady_clock::now() < end; std::this_thread::sleep_for(kLook)) {
      EXPECT_TRUE(feed->Ask().IsNone());
    }
  }
  // What comes until there are so many changes.
  ChangeNews News(std::size_t changes = 1) {
    ChangeNews news;
    for (int look = 0; look < kLooks && !news.isAll && news.changes.size() < changes; ++look) {
      news.Add(feed->Ask());
      std::this_thread::sleep_for(kLook);
    }
    return news;
  }
  static std::vector<std::string> CommandsOf(const ChangeNews& news) {
    std::vector<std::string> commands;
    for (const TrailEntry& change : news.changes) commands.push_back(change.command);
    if (news.isAll) commands.emplace_back("all");
    return commands;
  }
  using Commands = std::vector<std::string>;

  const DaySerial kDay = Day(2003, 9, 30);
  EstimateDatabase elsewhere{environment, records};
  de& them = elsewhere.lantosData;
  std::optional<ChangeFeed> feed;
};

}  // namespace lantos::test
