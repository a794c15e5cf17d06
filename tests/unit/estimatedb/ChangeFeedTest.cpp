#include <filesystem>
#include <fstream>

#include "estimatedb/ChangeFeedFixture.h"

namespace lantos::test {
namespace {

using std::chrono::milliseconds;

class ChangeFeedInAFile : public ChangeFeedTest {};

INSTANTIATE_TEST_SUITE_P(Kept, ChangeFeedTest, testing::Values(Kept::InAFile, Kept::OnAServer), NameOfKept);
INSTANTIATE_TEST_SUITE_P(Kept, ChangeFeedInAFile, testing::Values(Kept::InAFile), NameOfKept);

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

TEST_P(ChangeFeedInAFile, ALockThatSomebodyHoldsAtTheBeginningIsNotWaitedForEither) {
  SQLite::Database other(Path().string(), SQLite::OPEN_READWRITE);
  other.exec("begin exclusive");
  const auto begin = std::chrono::steady_clock::now();
  feed.emplace(db, kQuick);
  EXPECT_TRUE(feed->Ask().IsNone());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(500));
  other.exec("commit");
  EXPECT_EQ(CommandsOf(News()), Commands{"all"}) << "what was changed until then isn't known";
  them.SetComments("waits", 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetComments"});
}

// Restored from a copy, moved to a server, deleted: what is open is nobody's any more.
TEST_P(ChangeFeedInAFile, AFileThatAnotherOneHasTakenThePlaceOfIsNeitherFollowedNorReadNorWritten) {
  const auto copy = PathOf("copy.mdb");
  std::filesystem::copy_file(Path(), copy);
  Follow();
  std::filesystem::rename(Path(), PathOf("old.mdb"));
  const auto expectRefused = [&](const std::function<void()>& command) {
    try {
      command();
      ADD_FAILURE() << "done";
    } catch (const DatabaseError& error) {
      EXPECT_THAT(error.Words(),
                  testing::AllOf(testing::HasSubstr("start it again"), testing::HasSubstr("Lantos.mdb")));
    }
  };
  for (const bool isReplaced : {false, true}) {
    if (isReplaced) std::filesystem::rename(copy, Path());
    EXPECT_TRUE(feed->Ask().IsNone());
    EXPECT_FALSE(feed->Contact().stands);
    EXPECT_EQ(feed->Contact().trouble, "file moved");
    EXPECT_THAT(feed->Contact().reason, testing::HasSubstr("start it again"));
    expectRefused([&] { db.EstimateByNumber(7); });
    expectRefused([&] { db.SetStatus(5, 7); });
    expectRefused([&] { db.Connection().ReadTogether([] {}); });
    expectRefused([&] { db.Connection().Run("update Estimates set Status = 5", {}); });
  }
  EXPECT_EQ(PlainValue("select Status from Estimates"), "1");
  std::filesystem::rename(PathOf("old.mdb"), Path());
  them.SetComments("waits", 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetComments"}) << "it is back";
  EXPECT_TRUE(feed->Contact().stands);
}

TEST_P(ChangeFeedInAFile, WhatIsCommittedToAFileThatHasJustLostItsNameIsNotSaidToBeStored) {
  const auto copy = PathOf("copy.mdb");
  std::filesystem::copy_file(Path(), copy);
  EXPECT_EQ(KindOf([&] {
              db.Connection().Together([&] {
                db.SetStatus(5, 7);
                std::filesystem::rename(copy, Path());
              });
            }),
            DatabaseErrorKind::Unreachable);
  EXPECT_EQ(PlainValue("select Status from Estimates"), "1");
}

TEST_P(ChangeFeedInAFile, AnOlderCopyThatWasPutIntoTheFileIsAnotherProgramsChange) {
  const auto copy = PathOf("copy.mdb");
  std::filesystem::copy_file(Path(), copy);
  Follow();
  them.SetComments("one", 7);
  News();
  db.SetComments("two", 7);
  db.SetComments("three", 7);
  std::ofstream(Path(), std::ios::binary) << std::ifstream(copy, std::ios::binary).rdbuf();
  EXPECT_EQ(CommandsOf(News()), Commands{"all"});
  them.SetComments("four", 7);
  EXPECT_EQ(CommandsOf(News()), Commands{"SetComments"});
  them.SetComments("five", 7);
  them.SetComments("six", 7);
  EXPECT_EQ(CommandsOf(News(2)), (Commands{"SetComments", "SetComments"}));
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

}  // namespace
}  // namespace lantos::test
