#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "board/FollowingBench.h"
#include "frame/SharedFile.h"

// What another workstation changes while this one's board is on show.
namespace lantos {
namespace {

using test::DataOf;
using test::Followed;
using testing::HasSubstr;
using ui::Answer;

TEST(Following, AnEstimateThatIsBookedElsewhereIsListedAndItsHoursCount) {
  Followed bench;
  bench.them.AddEstimateRow(902, bench.Today(), kArrived);
  bench.them.AddLabor(902, 1, "BRAKES", 150, 8000, 12000, 3);
  EXPECT_GT(bench.Look(), 0);
  EXPECT_EQ(DataOf(bench.TuesdayList()), (std::vector<std::int32_t>{900, 900, 901, 901, 902, 902}));
  EXPECT_EQ(bench.Hours()[2], "1.50");
  EXPECT_EQ(bench.Look(), 0) << "once";
}

TEST(Following, WhatIsOfAnotherWeekIsNotReadAndWhatComesIntoTheWeekIs) {
  Followed bench;
  bench.them.AddEstimateRow(902, bench.Today() + 7, kArrived);
  bench.them.SetComments("waits", 902);
  bench.them.AddLabor(902, 1, "BRAKES", 150, 8000, 12000, 3);
  EXPECT_EQ(bench.Look(), 0) << "behind the rows of the trail";
  bench.them.SaveSpecialDay(bench.Today() + 8, 4, "half");
  EXPECT_EQ(bench.Look(), 0);
  bench.them.SaveSpecialDay(bench.Today(), 4, "Half a day");
  EXPECT_GT(bench.Look(), 1);
  EXPECT_THAT(bench.board.week.lblWeekComment.Caption(), HasSubstr("Half a day"));
}

TEST(Following, OnesOwnChangesAreReadByNobody) {
  Followed bench;
  bench.database.lantosData.SetStatus(kInProgress, 900);
  EXPECT_EQ(bench.Look(), 0);
}

TEST(Following, FromFarAwayOnlyWhatWasChangedIsReadAndOnesOwnChangesStayOnTheBoard) {
  Followed bench;
  bench.isFar = true;
  bench.database.lantosData.KeepTrail(bench.environment.clock, {"OFFICE", "ann"});
  const auto rows = [&] { return DataOf(bench.TuesdayList()); };
  bench.them.SaveSpecialDay(bench.Today(), 4, "Half a day");
  const int all = bench.Look();  // hours and special days are of no estimate
  EXPECT_THAT(bench.board.week.lblWeekComment.Caption(), HasSubstr("Half a day"));
  bench.them.SetStatus(kInProgress, 901);
  EXPECT_LT(bench.Look(), all);
  EXPECT_THAT(bench.TuesdayList().List(2), HasSubstr("In Progress"));
  // Booked here, and nobody has heard of it yet.
  bench.WillPickCustomer(7);
  bench.desktop.WillAnswer(Answer::No);
  bench.WillLeave();
  test::Click(bench.board.commands.cmdNewEstimate);
  const std::int32_t own = bench.Current().EstimateNumber;
  ASSERT_THAT(rows(), testing::Contains(own));
  bench.database.lantosData.SetStatus(kCancelled, 900);
  bench.them.AddEstimateRow(902, bench.Today(), kArrived);
  bench.them.AddLabor(902, 1, "BRAKES", 150, 8000, 12000, 3);
  bench.Look();
  EXPECT_EQ(rows(), (std::vector<std::int32_t>{900, 900, 901, 901, 902, 902, own, own}));
  EXPECT_THAT(bench.TuesdayList().List(0), HasSubstr("Cancelled"));
  EXPECT_EQ(bench.Hours()[2], "1.50");
}

TEST(Following, WhatAnotherProgramChangesIsReadToo) {
  Followed bench;
  bench.elsewhere.lantosData.Connection().Run("update Estimates set Status = 6 where EstimateNumber = 901", {});
  EXPECT_GT(bench.Look(), 1);
  EXPECT_THAT(bench.TuesdayList().List(2), HasSubstr("Cancelled"));
}

TEST(Following, WhatIsSelectedAndWhichDayIsMeantStays) {
  Followed bench;
  bench.board.week.frameWeek[4].DoClick();  // Thursday is meant
  bench.TuesdayList().DoSelect(3);          // 901, its second line
  const DaySerial day = bench.board.MonthView1.Value();
  ui::Control* const focus = bench.board.Focus();
  bench.them.AddEstimateRow(850, bench.Today(), kArrived);
  bench.Look();
  EXPECT_EQ(bench.TuesdayList().ListCount(), 6);
  EXPECT_EQ(bench.TuesdayList().ItemData(bench.TuesdayList().ListIndex()), 901);
  EXPECT_EQ(bench.TuesdayList().ListIndex(), 5);
  EXPECT_EQ(bench.board.MonthView1.Value(), day);
  EXPECT_EQ(bench.board.Focus(), focus);
  EXPECT_EQ(bench.Current().EstimateNumber, 901);
  EXPECT_EQ(bench.board.detail.DisplayedEstimate(), 901);
  EXPECT_TRUE(bench.board.day.List2.Rows().empty()) << "the day list is still Thursday's";
}

TEST(Following, TheEstimateOnShowIsShownAsItIsAndWhoHasChangedItIsToldBesideIt) {
  Followed bench;
  bench.Show(900);
  EXPECT_FALSE(bench.board.detail.lblChanged.Visible());
  bench.them.AddLabor(900, 1, "BRAKES", 150, 8000, 12000, 3);
  bench.them.SetStatus(kInProgress, 900);
  bench.Look();
  EXPECT_THAT(bench.board.detail.frameDetailView.Caption(), HasSubstr("In Progress"));
  EXPECT_EQ(bench.board.detail.txtTotalHours.Text(), "1.50");
  EXPECT_EQ(bench.Current().Status, kInProgress);
  EXPECT_EQ(bench.board.detail.lblChanged.Caption(),
            "Changed at FRONTDESK " + FormatTime(bench.clock.Now()).substr(0, 5));
  EXPECT_TRUE(bench.board.detail.lblChanged.Visible());
  EXPECT_TRUE(bench.board.detail.frameDetailView.Visible());
  bench.Show(901);
  EXPECT_FALSE(bench.board.detail.lblChanged.Visible());
}

TEST(Following, CommentsThatNobodyTypesAreTheOthers) {
  Followed bench;
  bench.Show(900);
  bench.them.SetComments("Theirs", 900);
  bench.Look();
  EXPECT_EQ(bench.board.detail.txtComments.Text(), "Theirs");
  bench.board.MoveFocus(&bench.board.detail.txtComments);
  bench.board.MoveFocus(&bench.board.commands.cmdWeekView);
  EXPECT_EQ(bench.StoredComments(), "Theirs");
}

TEST(Following, CommentsBeingTypedStayAndThePersonChoosesWhereTheyAreLeft) {
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    Followed bench;
    bench.Show(900);
    bench.board.MoveFocus(&bench.board.detail.txtComments);
    bench.board.detail.txtComments.DoType("Mine");
    bench.them.SetComments("Theirs", 900);
    bench.Look();
    EXPECT_EQ(bench.board.detail.txtComments.Text(), "Mine");
    EXPECT_EQ(bench.StoredComments(), "Theirs");
    EXPECT_THAT(bench.board.detail.lblChanged.Caption(), HasSubstr(": \"Theirs\""));
    bench.desktop.WillAnswer([answer](const ui::Box& box) {
      EXPECT_EQ(box.text,
                "Estimate # 000900 was changed by another user since it was shown here.\rIts comments:\r\r"
                "\"Theirs\" is stored, \"Mine\" is yours\r\rDo you want to store yours?\rNo keeps what is stored.");
      return answer;
    });
    bench.board.MoveFocus(&bench.board.commands.cmdWeekView);
    EXPECT_EQ(bench.StoredComments(), answer == Answer::Yes ? "Mine" : "Theirs");
    EXPECT_EQ(bench.board.detail.txtComments.Text(), answer == Answer::Yes ? "Mine" : "Theirs");
  }
}

TEST(Following, CommentsBeingTypedAreNotAskedAboutWhereTheOtherHasLeftThemAlone) {
  Followed bench;
  bench.Show(900);
  bench.board.MoveFocus(&bench.board.detail.txtComments);
  bench.board.detail.txtComments.DoType("Mine");
  bench.them.SetStatus(kInProgress, 900);
  bench.Look();
  EXPECT_EQ(bench.board.detail.txtComments.Text(), "Mine");
  bench.board.MoveFocus(&bench.board.commands.cmdWeekView);
  EXPECT_EQ(bench.StoredComments(), "Mine");
}

TEST(Following, WaitsForBoxesAndMenusAndOtherScreens) {
  Followed bench;
  const auto look = [&] {
    bench.them.AddEstimateRow(902 + static_cast<std::int32_t>(bench.TuesdayList().ListCount()), bench.Today(),
                              kArrived);
    const int before = bench.TuesdayList().ListCount();
    bench.Look();
    EXPECT_EQ(bench.TuesdayList().ListCount(), before);
  };
  bench.desktop.WillUse([&](ui::Form& form) {
    look();
    form.Hide();
  });
  bench.board.FindMenu("mnuPrintOptions")->DoClick();
  bench.Look();
  EXPECT_EQ(bench.TuesdayList().ListCount(), 6);
  bench.desktop.WillAnswer([&](const ui::Box&) {
    look();
    return Answer::Ok;
  });
  bench.desktop.Tell("Somebody else's", "Elsewhere");
  bench.Look();
  EXPECT_EQ(bench.TuesdayList().ListCount(), 8);
  bench.board.Run(look);  // what brings up a menu or a preview is an event of the board's
  bench.Look();
  EXPECT_EQ(bench.TuesdayList().ListCount(), 10);
}

TEST(Following, WhatKeepsItFromFollowingStandsBelowTheCommandsAndOnceInTheRunLogAndInNoBox) {
  Followed bench;
  bench.environment.log.Open();
  std::filesystem::rename(bench.directory / "Lantos.mdb", bench.directory / "elsewhere.mdb");
  for (int look = 0; look < 3; ++look) bench.Look();
  EXPECT_EQ(bench.board.lblFollowed.Caption(), "Not followed: file moved");
  std::ostringstream log;
  log << std::ifstream(bench.environment.log.Path()).rdbuf();
  const std::string_view told = "What others change isn't followed: The estimates have been moved";
  EXPECT_THAT(log.str(), HasSubstr(told));
  EXPECT_EQ(log.str().find(told), log.str().rfind(told)) << "once";
  std::filesystem::rename(bench.directory / "elsewhere.mdb", bench.directory / "Lantos.mdb");
  bench.Look();
  EXPECT_EQ(bench.board.lblFollowed.Caption(), "Followed 0:00 ago");
}

TEST(Following, WaitsForAMenuThatHangsOpenAndForTheMouse) {
  Followed bench;
  bench.desktop.personIsBusy = true;
  bench.them.AddEstimateRow(902, bench.Today(), kArrived);
  bench.Look();
  EXPECT_EQ(bench.TuesdayList().ListCount(), 4);
  bench.desktop.personIsBusy = false;
  bench.Look();
  EXPECT_EQ(bench.TuesdayList().ListCount(), 6);
}

TEST(Following, IsOffUntilItIsAskedForAndOffAgainWithNoTimerAndNothingAsked) {
  Followed bench;
  EXPECT_EQ(bench.environment.settings.Get("FollowChanges"), "1");
  EXPECT_TRUE(bench.board.lblFollowed.Visible());
  EXPECT_EQ(bench.board.lblFollowed.Caption(), "Followed 0:00 ago");
  EXPECT_GT(bench.board.FollowTimer.Interval(), 0);
  EXPECT_TRUE(bench.board.FindMenu("mnuFollow")->Checked());
  bench.board.FindMenu("mnuFollow")->DoClick();
  EXPECT_EQ(bench.environment.settings.Get("FollowChanges"), "0");
  EXPECT_FALSE(bench.board.lblFollowed.Visible());
  EXPECT_EQ(bench.board.FollowTimer.Interval(), 0);
  EXPECT_FALSE(bench.board.FindMenu("mnuFollow")->Checked());
  bench.them.SetStatus(kCancelled, 901);
  EXPECT_EQ(bench.Look(), 0);
}

TEST(Following, ADatabaseThatRefusesTheReloadIsAskedAgainWithoutABox) {
  Followed bench;
  bench.them.SetStatus(kCancelled, 901);
  bench.them.Connection().Run("alter table StandardHours rename to Hidden", {});
  bench.Look();
  EXPECT_TRUE(bench.desktop.boxes.empty());
  bench.them.Connection().Run("alter table Hidden rename to StandardHours", {});
  for (int tick = 0; tick < 6; ++tick) bench.Look();
  EXPECT_THAT(bench.TuesdayList().List(2), HasSubstr("Cancelled"));
}

TEST(Following, TheSelectedEstimateThatIsNotOnShowIsReadToo) {
  Followed bench;
  bench.Show(900);
  bench.board.LoadWeek(bench.Today());  // nothing is on show, and 900 is still the current one
  ASSERT_EQ(bench.board.detail.DisplayedEstimate(), 0);
  ASSERT_EQ(bench.Current().EstimateNumber, 900);
  bench.them.SetStatus(kInProgress, 900);
  bench.them.SetComments("Theirs", 900);
  bench.Look();
  bench.board.commands.cmdDetailView.DoClick();
  EXPECT_THAT(bench.board.detail.frameDetailView.Caption(), HasSubstr("In Progress"));
  EXPECT_EQ(bench.board.detail.txtComments.Text(), "Theirs");
}

// Of an unknown customer the tags are read, and the master of one who isn't in memory.
TEST(Following, CustomersThatSomebodyElseHasAreReadLaterWithoutABoxAndTheListsStayUntilThen) {
  for (const auto& [file, customer] : {std::pair("TQCSTDAT.DAT", 8), std::pair("TQCSTTAG.DAT", 9)}) {
    Followed bench;
    bench.BookElsewhere(902, customer);
    std::optional<SharedFile> held;
    held.emplace(bench.directory.Path() / file, Access::ReadWrite, Deny::All);
    bench.Look();
    EXPECT_TRUE(bench.desktop.boxes.empty()) << file;
    EXPECT_EQ(DataOf(bench.TuesdayList()), (std::vector<std::int32_t>{900, 900, 901, 901})) << file;
    EXPECT_THAT(bench.TuesdayList().List(1), HasSubstr("Adams")) << file;
    held.reset();
    for (int tick = 0; tick < 6; ++tick) bench.Look();
    EXPECT_EQ(DataOf(bench.TuesdayList()), (std::vector<std::int32_t>{900, 900, 901, 901, 902, 902})) << file;
  }
}

TEST(Following, ACustomerWhoseTagLeadsNowhereIsUnknownWithoutABox) {
  Followed bench;
  bench.directory.Put("TQCSTTAG.DAT", test::Image()
                                          .Append(test::CustomerTagImage(7, "Adams,Beth", 0))
                                          .Append(test::CustomerTagImage(9, "Gone,Al", 99999)));
  bench.BookElsewhere(902, 9);
  bench.Look();
  EXPECT_TRUE(bench.desktop.boxes.empty());
  EXPECT_EQ(bench.TuesdayList().ListCount(), 6);
}

TEST(Following, AStrangerInTheChecklistIsToldWhereThePersonLooksAndNotAgainForTheOthersChange) {
  Followed bench;
  bench.them.AddChecklistRow(900, "Ghost,1,0");
  bench.Look();
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});  // where it is chosen, and where the detail view comes up
  bench.Show(900);
  ASSERT_EQ(bench.desktop.boxes.size(), 2U);
  bench.them.SetStatus(kInProgress, 900);
  bench.Look();
  EXPECT_EQ(bench.desktop.boxes.size(), 2U);
  EXPECT_THAT(bench.board.detail.frameDetailView.Caption(), HasSubstr("In Progress"));
}

TEST(Following, AReloadThatStopsHalfwayAsksAboutTheOthersCommentsAllTheSame) {
  Followed bench;
  bench.Show(900);
  bench.board.MoveFocus(&bench.board.detail.txtComments);
  bench.board.detail.txtComments.DoType("Mine");
  bench.them.SetComments("Theirs", 900);
  bench.records.customers.LookupCustomer(8);
  {
    const SharedFile held(bench.directory.Path() / "TQCSTDAT.DAT", Access::ReadWrite, Deny::All);
    EXPECT_THROW(bench.board.detail.ShowAnew(""), FileError);
  }
  EXPECT_TRUE(bench.desktop.boxes.empty());
  bench.desktop.WillAnswer({Answer::No});
  bench.board.MoveFocus(&bench.board.commands.cmdWeekView);
  EXPECT_EQ(bench.desktop.boxes.size(), 1U);
  EXPECT_EQ(bench.StoredComments(), "Theirs");
}

}  // namespace
}  // namespace lantos
