#include <fmt/format.h>

#include "estimatedb/ChangeFeedFixture.h"
#include "estimatedb/postgres/PostgresEngine.h"
#include "estimatedb/postgres/ServerWatch.h"
#include "support/CuttingProxy.h"

namespace lantos::test {
namespace {

using std::chrono::milliseconds;
using testing::AllOf;
using testing::HasSubstr;

class ChangeFeedOnAServer : public ChangeFeedTest {
 protected:
  // Over a line that can be cut.
  ServerWatch Watch(const CuttingProxy& line) {
    const std::string text = fmt::format(
        "Lantos database server\nserver = postgresql://shop@/test?host={}\nschema = {}\n", line.Directory(), Schema());
    return ServerWatch(ParseServerFile(text, Path()), std::make_shared<OwnChanges>(), kQuick);
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

INSTANTIATE_TEST_SUITE_P(Kept, ChangeFeedOnAServer, testing::Values(Kept::OnAServer), NameOfKept);

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

// Also where it is there and fails, and where somebody has taken it away: then it is made anew.
TEST_P(ChangeFeedOnAServer, WhatNoTriggerHasToldOfIsFoundInTheTrail) {
  Follow();
  std::int16_t status = 1;
  const auto isFound = [&] {
    WaitForALook();
    them.SetStatus(++status, 7);
    EXPECT_EQ(CommandsOf(News()), Commands{"all"});
    WaitForALook();
    EXPECT_TRUE(feed->Ask().IsNone()) << "once";
    EXPECT_TRUE(feed->Contact().stands);
  };
  Plain("alter table Trail disable trigger trailfeed_tells");
  isFound();
  isFound();
  Plain(
      "alter table Trail enable trigger trailfeed_tells; alter table TrailFeed add constraint Against check (false) "
      "not "
      "valid");
  isFound();
  Plain("alter table TrailFeed drop constraint Against; drop trigger trailfeed_tells on Trail");
  them.SetStatus(++status, 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"all"});
  EXPECT_EQ(CommandsOf(News()), Commands{"all"}) << "it is made anew, and what was changed until then is read";
  them.SetStatus(++status, 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetStatus"});
}

TEST_P(ChangeFeedOnAServer, ALoginWithoutRightsOnTheFeedIsToldSoUntilItHasThem) {
  Follow();
  PlainConnection owner(TestServer::Instance().Address("owner"), Schema());
  const auto waitFor = [&](bool stands) {
    for (int look = 0; look < kLooks && feed->Contact().stands != stands; ++look) {
      feed->Ask();
      std::this_thread::sleep_for(kLook);
    }
    EXPECT_EQ(feed->Contact().stands, stands);
  };
  Plain("revoke select on TrailFeed from shop");
  waitFor(false);
  for (int look = 0; look < 50; ++look, std::this_thread::sleep_for(kLook)) feed->Ask();
  EXPECT_FALSE(feed->Contact().stands);
  EXPECT_EQ(feed->Contact().trouble, "no rights");
  EXPECT_THAT(feed->Contact().reason, AllOf(HasSubstr("TrailFeed"), HasSubstr(Schema())));
  them.SetStatus(2, 7);
  Plain("grant select on TrailFeed to shop");
  waitFor(true);
  EXPECT_EQ(feed->Contact().trouble + feed->Contact().reason, "");
}

TEST_P(ChangeFeedOnAServer, AServerWithoutAConnectionLeftIsToldSoUntilItHasOne) {
  PlainConnection owner(TestServer::Instance().Address("owner"), Schema());
  owner.Run("alter role shop connection limit 2");
  feed.emplace(db, kQuick);
  for (int look = 0; look < kLooks && feed->Contact().trouble.empty(); ++look, std::this_thread::sleep_for(kLook)) {
    EXPECT_TRUE(feed->Ask().IsNone());
  }
  EXPECT_EQ(feed->Contact().trouble, "server full");
  EXPECT_THAT(feed->Contact().reason, HasSubstr("as many connections as it takes"));
  them.SetStatus(2, 7);
  owner.Run("alter role shop connection limit -1");
  Follow();
  EXPECT_EQ(feed->Contact().trouble, "");
}

// What was on its way when the connection went may be stored, or not, or only later.
TEST_P(ChangeFeedOnAServer, OnesOwnChangeThatNobodyKnowsTheFateOfIsReadAsAnothers) {
  CuttingProxy line(PathOf("line").string(), TestServer::Instance().Directory());
  Put("Lantos.mdb", fmt::format("Lantos database server\nserver = postgresql://shop@/test?host={}\nschema = {}\n",
                                line.Directory(), Schema()));
  EstimateDatabase overTheLine(environment, records);
  Connect(overTheLine, environment);
  de& ours = overTheLine.lantosData;
  ours.KeepTrail(clock, {"OFFICE", "ann"});
  ours.SetStatus(2, 7);
  feed.emplace(ours, kQuick);
  for (int look = 0; look < kLooks && !feed->Ask().isAll; ++look) std::this_thread::sleep_for(kLook);
  ours.SetStatus(3, 7);
  for (int look = 0; look < 50; ++look, std::this_thread::sleep_for(kLook)) EXPECT_TRUE(feed->Ask().IsNone());

  PlainConnection holder(TestServer::Instance().Address(), Schema());
  holder.Run(
      "create function EndIt() returns trigger language plpgsql as $$ begin perform pg_sleep(0.3); return null; end "
      "$$; "
      "create constraint trigger Slow after insert on Trail deferrable initially deferred for each row execute "
      "function EndIt()");
  std::thread cutter([&] {
    std::this_thread::sleep_for(milliseconds(150));
    line.CutNow();
  });
  EXPECT_ANY_THROW(ours.SetStatus(4, 7));
  cutter.join();
  ChangeNews news;
  for (int look = 0; look < kLooks && (!news.isAll || news.changes.empty());
       ++look, std::this_thread::sleep_for(kLook)) {
    news.Add(feed->Ask());
  }
  EXPECT_EQ(CommandsOf(news), (Commands{"SetStatus", "all"}));
  EXPECT_EQ(PlainValue("select Status from Estimates"), "4");
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
