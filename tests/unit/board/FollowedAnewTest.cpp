#include <gmock/gmock.h>

#include "board/FollowingBench.h"
#include "frame/SharedFile.h"

// What was changed while nobody followed it, in the database and in the customers' files.
namespace lantos {
namespace {

using test::CustomerImage;
using test::CustomerTagImage;
using test::DataOf;
using test::Followable;
using test::Followed;
using test::Image;
using testing::HasSubstr;
using ui::Answer;

// Somebody marries, at the main application.
void RenameAdams(const test::ScratchDirectory& directory) {
  directory.Put("TQCSTDAT.DAT", Image()
                                    .Append(CustomerImage(7, "Baker").Text(25, "Beth").Text(156, "555-0142"))
                                    .Append(CustomerImage(8, "School").Text(25, "City").Text(213, "31-12")));
  directory.Put("TQCSTTAG.DAT",
                Image().Append(CustomerTagImage(7, "Baker,Beth", 0)).Append(CustomerTagImage(8, "School,City", 317)));
}

TEST(FollowedAnew, WhatWasChangedBeforeItIsTurnedOnIsShownThen) {
  Followable bench;
  bench.Show(900);
  bench.them.SetComments("Theirs", 900);
  bench.them.AddLabor(900, 1, "BRAKES", 150, 8000, 12000, 3);
  bench.them.SetStatus(kCancelled, 901);
  bench.TurnOn();
  EXPECT_EQ(bench.board.detail.txtComments.Text(), "Theirs");
  EXPECT_EQ(bench.board.detail.txtTotalHours.Text(), "1.50");
  EXPECT_THAT(bench.TuesdayList().List(2), HasSubstr("Cancelled"));
  EXPECT_EQ(bench.Look(), 0) << "once";
}

TEST(FollowedAnew, CommentsBeingTypedStayWhereItIsTurnedOnAndThePersonChooses) {
  Followable bench;
  bench.Show(900);
  bench.board.MoveFocus(&bench.board.detail.txtComments);
  bench.board.detail.txtComments.DoType("Mine");
  bench.them.SetComments("Theirs", 900);
  bench.TurnOn();
  EXPECT_EQ(bench.board.detail.txtComments.Text(), "Mine");
  EXPECT_EQ(bench.board.detail.lblChanged.Caption(), "Changed elsewhere: \"Theirs\"");
  bench.desktop.WillAnswer({Answer::No});
  bench.board.MoveFocus(&bench.board.commands.cmdWeekView);
  EXPECT_EQ(bench.StoredComments(), "Theirs");
}

TEST(FollowedAnew, TheSelectedEstimateThatIsNotOnShowIsReadToo) {
  Followable bench;
  bench.Show(900);
  bench.board.LoadWeek(bench.Today());  // nothing is on show, and 900 is still the current one
  ASSERT_EQ(bench.board.detail.DisplayedEstimate(), 0);
  bench.them.SetStatus(kInProgress, 900);
  bench.TurnOn();
  EXPECT_EQ(bench.Current().Status, kInProgress);
}

// Another time there may be no hole in what is told, but nothing says so.
TEST(FollowedAnew, AllIsReadWhenTheDatabaseIsHeardOfAgain) {
  Followed bench;
  bench.Show(900);
  bench.isDeaf = true;
  bench.them.SetStatus(kCancelled, 901);
  bench.them.SetComments("Theirs", 900);
  EXPECT_EQ(bench.Look(), 0);
  EXPECT_THAT(bench.board.lblFollowed.Caption(), HasSubstr("Not followed"));
  bench.isDeaf = false;
  EXPECT_GT(bench.Look(), 0);
  EXPECT_THAT(bench.TuesdayList().List(2), HasSubstr("Cancelled"));
  EXPECT_EQ(bench.board.detail.txtComments.Text(), "Theirs");
  EXPECT_EQ(bench.Look(), 0) << "once";
}

TEST(FollowedAnew, AFileThatIsHeldWhereItIsTurnedOnIsReadLaterWithoutABox) {
  Followable bench;
  bench.BookElsewhere(902, 8);
  {
    const SharedFile held(bench.directory.Path() / "TQCSTDAT.DAT", Access::ReadWrite, Deny::All);
    bench.TurnOn();
    EXPECT_TRUE(bench.desktop.boxes.empty());
    EXPECT_EQ(bench.TuesdayList().ListCount(), 4);
  }
  for (int tick = 0; tick < 6; ++tick) bench.Look();
  EXPECT_EQ(bench.TuesdayList().ListCount(), 6);
}

TEST(FollowedNames, TheNamesOnTheBoardFollowTheTagFile) {
  Followed bench;
  bench.Show(900);
  ASSERT_THAT(bench.TuesdayList().List(1), HasSubstr("Adams"));
  RenameAdams(bench.directory);
  bench.Look();
  EXPECT_THAT(bench.TuesdayList().List(1), HasSubstr("Baker"));
  EXPECT_THAT(bench.board.day.List2.List(0), HasSubstr("Baker"));
  EXPECT_EQ(bench.board.detail.lblCustName.Caption(), "Beth Baker");
  EXPECT_EQ(bench.TuesdayList().ItemData(bench.TuesdayList().ListIndex()), 900) << "and what is selected stays";
}

TEST(FollowedNames, ATagFileThatIsOnlyLongerIsReadToo) {
  Followed bench;
  bench.BookElsewhere(902, 9);
  bench.Look();
  const auto before = std::filesystem::last_write_time(bench.directory / "TQCSTTAG.DAT");
  const auto append = [&](const std::string& file, const Image& record) {
    bench.directory.Put(file, Image(bench.directory.Content(file)).Append(record));
  };
  append("TQCSTDAT.DAT", CustomerImage(9, "Clark"));
  append("TQCSTTAG.DAT", CustomerTagImage(9, "Clark,", 634));
  std::filesystem::last_write_time(bench.directory / "TQCSTTAG.DAT", before);
  bench.Look();
  EXPECT_THAT(bench.TuesdayList().List(5), HasSubstr("Clark"));
}

TEST(FollowedNames, ATagFileThatStaysAsItIsCostsNoStatementAndIsNotOpened) {
  Followed bench;
  const SharedFile held(bench.directory.Path() / "TQCSTTAG.DAT", Access::ReadWrite, Deny::All);
  for (int tick = 0; tick < 10; ++tick) EXPECT_EQ(bench.Look(), 0);
  EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST(FollowedNames, ATagFileThatIsHeldIsReadLaterAndHoldsUpNothingElse) {
  Followed bench;
  RenameAdams(bench.directory);
  std::optional<SharedFile> held;
  held.emplace(bench.directory.Path() / "TQCSTTAG.DAT", Access::ReadWrite, Deny::All);
  bench.them.SetStatus(kCancelled, 901);
  bench.Look();
  EXPECT_TRUE(bench.desktop.boxes.empty());
  EXPECT_THAT(bench.TuesdayList().List(2), HasSubstr("Cancelled"));
  held.reset();
  for (int tick = 0; tick < 6; ++tick) bench.Look();
  EXPECT_THAT(bench.TuesdayList().List(1), HasSubstr("Baker"));
}

TEST(FollowedNames, NamesThatCouldNotBeShownAreTriedAgain) {
  Followed bench;
  RenameAdams(bench.directory);
  {
    const SharedFile held(bench.directory.Path() / "TQCSTDAT.DAT", Access::ReadWrite, Deny::All);
    bench.Look();
    EXPECT_THAT(bench.TuesdayList().List(1), HasSubstr("Adams"));
  }
  for (int tick = 0; tick < 6; ++tick) bench.Look();
  EXPECT_THAT(bench.TuesdayList().List(1), HasSubstr("Baker"));
  EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST(FollowedNames, NobodyLooksAtThemWhereItIsOff) {
  Followable bench;
  RenameAdams(bench.directory);
  bench.Look();
  EXPECT_THAT(bench.TuesdayList().List(1), HasSubstr("Adams"));
  bench.TurnOn();
  EXPECT_THAT(bench.TuesdayList().List(1), HasSubstr("Baker"));
}

}  // namespace
}  // namespace lantos
