#include "estimatedb/ChangeFeed.h"

#include <fmt/format.h>

#include <thread>

#include "estimatedb/EitherDatabase.h"
#include "estimatedb/postgres/PostgresEngine.h"
#include "estimatedb/postgres/ServerWatch.h"
#include "support/CuttingProxy.h"

namespace lantos::test {
namespace {

using std::chrono::milliseconds;

constexpr WatchTimes kQuick{.merge = milliseconds(20),
                            .heartbeat = milliseconds(100),
                            .patience = milliseconds(300),
                            .firstPause = milliseconds(20),
                            .longestPause = milliseconds(50)};
constexpr int kLooks = 2000;  // 5 ms each
constexpr milliseconds kLook{5};

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

class ChangeFeedInAFile : public ChangeFeedTest {};

class ChangeFeedOnAServer : public ChangeFeedTest {
 protected:
  // Over a line that can be cut.
  ServerWatch Watch(const CuttingProxy& line) {
    const std::string text = fmt::format(
        "Lantos database server\nserver = postgresql://shop@/test?host={}\nschema = {}\n", line.Directory(), Schema());
    return ServerWatch(ParseServerFile(text, Path()), "this one", kQuick);
  }
  static void WaitFor(ServerWatch& watch, bool stands) {
    for (int look = 0; look < kLooks && watch.Contact().stands != stands; ++look) {
      watch.Ask();
      std::this_thread::sleep_for(kLook);
    }
    EXPECT_EQ(watch.Contact().stands, stands);
  }
  static std::size_t RowsOf(ServerWatch& watch) {
    for (int look = 0; look < kLooks; ++look) {
      const ForeignRows rows = watch.Ask();
      EXPECT_FALSE(rows.isAll);
      if (rows.trail.IsOpen()) return rows.trail.Count();
      std::this_thread::sleep_for(kLook);
    }
    return 0;
  }
};

INSTANTIATE_TEST_SUITE_P(Kept, ChangeFeedTest, testing::Values(Kept::InAFile, Kept::OnAServer), NameOfKept);
INSTANTIATE_TEST_SUITE_P(Kept, ChangeFeedInAFile, testing::Values(Kept::InAFile), NameOfKept);
INSTANTIATE_TEST_SUITE_P(Kept, ChangeFeedOnAServer, testing::Values(Kept::OnAServer), NameOfKept);

TEST_P(ChangeFeedTest, WhatAnotherChangesIsToldWithWhoAndWhatAndWhichDay) {
  Follow();
  them.SetStatus(2, 7);
  const ChangeNews news = News();
  ASSERT_EQ(CommandsOf(news), Commands{"SetStatus"});
  EXPECT_EQ(news.changes[0].author, (TrailAuthor{"FRONTDESK", "beth"}));
  EXPECT_EQ(news.changes[0].estimate, 7);
  EXPECT_EQ(news.changes[0].at.day, clock.Now().day);
  EXPECT_EQ(news.changes[0].after.at(0).Text("SchedDate"), "2003-09-30");
  EXPECT_TRUE(feed->Ask().IsNone()) << "once";
}

TEST_P(ChangeFeedTest, OnesOwnChangesAreNone) {
  Follow();
  db.SetStatus(2, 7);
  them.AddLabor(7, 1, "BRAKES", 150, 8000, 12000, 3);
  db.SetStatus(3, 7);
  them.SetStatus(4, 7);
  EXPECT_EQ(CommandsOf(News(2)), (Commands{"AddLabor", "SetStatus"}));
}

TEST_P(ChangeFeedTest, WhatIsTakenBackIsNothing) {
  Follow();
  EXPECT_THROW(them.Connection().Together([&] {
    them.SetStatus(2, 7);
    throw std::runtime_error("given up");
  }),
               std::runtime_error);
  them.SetComments("waits", 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetComments"});
}

TEST_P(ChangeFeedTest, SeveralChangesTogetherComeTogetherAndInTheirOrder) {
  Follow();
  them.Connection().Together([&] {
    them.NewEstimate(8, kDay);
    them.SetCustomer(3, 8);
    them.SetStatus(1, 8);
  });
  EXPECT_EQ(CommandsOf(News(3)), (Commands{"NewEstimate", "SetCustomer", "SetStatus"}));
}

TEST_P(ChangeFeedTest, TwoOfThemEachHearOfTheOther) {
  Follow();
  ChangeFeed theirs(them, kQuick);
  for (int look = 0; look < kLooks && IsOnAServer() && !theirs.Ask().isAll; ++look) std::this_thread::sleep_for(kLook);
  them.SetStatus(2, 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetStatus"});
  EXPECT_TRUE(theirs.Ask().IsNone());
  db.SetComments("ours", 7);
  ChangeNews news;
  for (int look = 0; look < kLooks && news.IsNone(); ++look, std::this_thread::sleep_for(kLook)) news = theirs.Ask();
  EXPECT_EQ(CommandsOf(news), Commands{"SetComments"});
}

// A number that was undone here alone, and is theirs from then on.
TEST_P(ChangeFeedInAFile, ARowOfTheTrailThatWasUndoneHereIsTheirs) {
  Follow();
  db.Connection().Together([&] {
    EXPECT_THROW(db.Connection().Apart([&] {
      db.SetStatus(2, 7);
      throw std::runtime_error("given up");
    }),
                 std::runtime_error);
  });
  them.SetComments("waits", 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetComments"});
}

// Alone, among others that went well, and where the commit itself was refused; each with a reading behind it.
TEST_P(ChangeFeedInAFile, WhateverWasUndoneHereLeavesTheirsTheNumber) {
  Follow();
  const auto stopsAtTheEnd = [&](const std::function<void()>& last) {
    EXPECT_ANY_THROW(db.Connection().Together([&] {
      db.SetStatus(2, 7);
      last();
    }));
    EXPECT_EQ(db.EstimateByNumber(7).Count(), 1u);
    them.SetComments("waits", 7);
    EXPECT_EQ(CommandsOf(News()), Commands{"SetComments"});
  };
  stopsAtTheEnd([] { throw std::runtime_error("given up"); });
  SQLite::Database reader(Path().string(), SQLite::OPEN_READONLY);
  {
    SQLite::Statement held(reader, "select * from Estimates");
    held.executeStep();
    db.Connection().Run("PRAGMA busy_timeout = 1", {});
    EXPECT_EQ(KindOf([&] { db.SetStatus(3, 7); }), DatabaseErrorKind::Locked) << "its commit waits for readers";
  }
  them.SetComments("goes", 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetComments"});
}

TEST_P(ChangeFeedInAFile, AStatementThatFailedAmongOthersLeavesTheirsTheNumber) {
  Follow();
  Plain(
      "create trigger Refusal after insert on Trail when new.Command = 'SetStatus' begin select raise(abort, 'no'); "
      "end");
  db.Connection().Together(
      [&] { EXPECT_ANY_THROW(db.Connection().Run("insert into Trail (Command) values ('SetStatus')", {})); });
  Plain("drop trigger Refusal");
  News();
  them.SetComments("waits", 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetComments"});
}

// A person may be asked in the middle of one's own changes, and the look come then.
TEST_P(ChangeFeedInAFile, ALookInTheMiddleOfOnesOwnChangesIsNone) {
  Follow();
  them.SetComments("waits", 7);
  db.Connection().Together([&] {
    db.SetStatus(2, 7);
    EXPECT_TRUE(feed->Ask().IsNone());
  });
  EXPECT_EQ(CommandsOf(News()), Commands{"SetComments"});
}

TEST_P(ChangeFeedInAFile, AnotherProgramsChangeIsOfAnything) {
  Follow();
  Plain("update Estimates set Status = 3");
  EXPECT_EQ(CommandsOf(News()), Commands{"all"});
}

TEST_P(ChangeFeedInAFile, ALockThatSomebodyHoldsIsNotWaitedFor) {
  Follow();
  SQLite::Database other(Path().string(), SQLite::OPEN_READWRITE);
  other.exec("begin exclusive");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_TRUE(feed->Ask().IsNone());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(500));
  EXPECT_TRUE(feed->Contact().stands);
  other.exec("update Estimates set Status = 3");
  other.exec("commit");
  EXPECT_EQ(CommandsOf(News()), Commands{"all"});
}

// The trail's own numbers are given ahead of the commit, and come in another order.
TEST_P(ChangeFeedOnAServer, WhatIsCommittedLaterIsToldLaterWhateverItsNumber) {
  Follow();
  PlainConnection first(TestServer::Instance().Address(), Schema());
  PlainConnection second(TestServer::Instance().Address(), Schema());
  first.Run("begin; insert into Trail (Command, EstimateNumber) values ('first', 7)");
  second.Run("insert into Trail (Command, EstimateNumber) values ('second', 7)");
  EXPECT_EQ(CommandsOf(News()), Commands{"second"});
  first.Run("commit");
  EXPECT_EQ(CommandsOf(News()), Commands{"first"});
}

TEST_P(ChangeFeedOnAServer, ADatabaseThatHasLostTheFeedIsChangedAllTheSame) {
  Follow();
  Plain("drop table TrailCount");
  them.SetStatus(2, 7);
  EXPECT_EQ(PlainValue("select Status from Estimates"), "2");
  for (int look = 0; look < kLooks && !feed->Ask().isAll; ++look) std::this_thread::sleep_for(kLook);
  them.SetStatus(3, 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetStatus"}) << "the next connection makes it anew";
}

TEST_P(ChangeFeedOnAServer, WhatCameWhileTheLineWasCutIsReadBehindIt) {
  CuttingProxy line(PathOf("line").string(), TestServer::Instance().Directory());
  ServerWatch watch = Watch(line);
  WaitFor(watch, true);
  line.CutBehind(1);
  line.FallSilent();
  them.SetStatus(2, 7);
  WaitFor(watch, false);
  line.CutNoMore();
  line.SpeakAgain();
  them.SetStatus(3, 7);
  EXPECT_EQ(RowsOf(watch), 2u);
  EXPECT_TRUE(watch.Contact().stands);
}

TEST_P(ChangeFeedOnAServer, ALineThatSaysNothingIsFoundOut) {
  CuttingProxy line(PathOf("line").string(), TestServer::Instance().Directory());
  ServerWatch watch = Watch(line);
  WaitFor(watch, true);
  line.FallSilent();
  const auto begin = std::chrono::steady_clock::now();
  WaitFor(watch, false);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, kQuick.heartbeat + kQuick.patience + milliseconds(1000));
  them.SetStatus(2, 7);
  line.SpeakAgain();
  EXPECT_EQ(RowsOf(watch), 1u);
}

TEST_P(ChangeFeedOnAServer, AServerThatWasStoppedAndStartedIsFollowedAgain) {
  Follow();
  TestServer::Instance().Stop();
  for (int look = 0; look < kLooks && feed->Contact().stands; ++look) {
    feed->Ask();
    std::this_thread::sleep_for(kLook);
  }
  EXPECT_FALSE(feed->Contact().stands);
  TestServer::Instance().Start();
  them.SetStatus(2, 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetStatus"});
}

// Whoever doesn't follow asks the server as often as before.
TEST_P(ChangeFeedOnAServer, WhatIsFollowedCostsWhoeverChangesItNoRoundTrip) {
  std::int32_t line = 0;
  const auto trips = [&] {
    auto& engine = dynamic_cast<PostgresEngine&>(them.Connection());
    const std::size_t before = engine.RoundTrips();
    them.AddLabor(7, ++line, "BRAKES", 150, 8000, 12000, 3);
    return engine.RoundTrips() - before;
  };
  const std::size_t before = trips();
  Follow();
  EXPECT_EQ(trips(), before);
}

}  // namespace
}  // namespace lantos::test
