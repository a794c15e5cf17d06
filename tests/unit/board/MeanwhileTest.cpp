#include "board/BookingBench.h"

// What another copy makes of an estimate while this one's person has the screen of a move up.
namespace lantos {
namespace {

using test::BookingBench;
using ui::Answer;

// Scheduled for today, chosen in the week.
struct Moved : BookingBench {
  Moved() {
    directory.Put("TQEMPLOY.DAT", "");
    AddEstimate(900, Today(), kArrived);
    AddLabor(900, 1, 400, 26000);
    Start();
    environment.statusOptions.letters[static_cast<std::size_t>(StatusOption::ContinuedAutoSchedule)] = 'Y';
    Choose(board.week.List1[kTuesday], 0);
  }
  void TheySet(Status status) {
    Do("update Estimates set Status = " + std::to_string(status) + " where EstimateNumber = 900");
  }
  // The box, while which they set another one.
  void WillSetWhileAsked(Status status, Answer answer) {
    desktop.WillAnswer([this, status, answer](const ui::Box&) {
      TheySet(status);
      return answer;
    });
  }
  void ExpectAsked(std::size_t box, const std::string& status, const std::string& before) {
    EXPECT_EQ(desktop.boxes.at(box).text,
              "Estimate # 000900 was changed by another user since it was shown here.\r\rIts status is '" + status +
                  "', not '" + before + "'.\r\rDo you wish to continue?");
  }
  std::size_t Estimates() { return std::stoul(Ask("select count(*) from Estimates")); }
};

TEST(MovedMeanwhile, AStatusThatIsSetWhileTheQuestionIsUpIsAskedAboutAgain) {
  Moved bench;
  bench.WillSetWhileAsked(kCancelled, Answer::Yes);
  bench.desktop.WillAnswer(Answer::No);
  bench.desktop.WillUse([&](ui::Form& form) {
    bench.TheySet(kInProgress);
    form.PressKey(ui::ParseKey("F10"));
    form.PressKey(ui::ParseKey("Esc"));
  });
  test::Click(bench.board.commands.cmdReschedule);
  bench.ExpectAsked(0, "In Progress", "Arrived");
  bench.ExpectAsked(1, "Cancelled", "In Progress");
  EXPECT_EQ(bench.Estimates(), 1u);
  EXPECT_EQ(bench.StoredStatus(900), "6");
}

// The copy needs a number, which can take as long as another copy has the system record.
TEST(MovedMeanwhile, AStatusThatIsSetWhileTheNumberIsTakenIsKept) {
  Moved bench;
  bench.desktop.failuresExpected = true;
  bench.directory.Put("TQSYSTEM.DAT", std::string(1038, '\0'));
  bench.WillSetWhileAsked(kCancelled, Answer::Ok);  // a number that is lost
  bench.desktop.WillAnswer(Answer::No);
  bench.desktop.WillUse([&](ui::Form& form) {
    form.PressKey(ui::ParseKey("F10"));
    form.PressKey(ui::ParseKey("Esc"));
  });
  test::Click(bench.board.commands.cmdReschedule);
  EXPECT_EQ(bench.desktop.boxes.at(0).title, "Next Number");
  bench.ExpectAsked(1, "Cancelled", "Arrived");
  EXPECT_EQ(bench.StoredStatus(900), "6");
  EXPECT_EQ(bench.desktop.failures, (std::vector<std::string>{"This estimate was left as it is."}));
  EXPECT_EQ(bench.Estimates(), 1u);
}

// The copy is what the estimate is by then, and stands behind its day.
TEST(MovedMeanwhile, AContinuationIsOfTheStatusAndTheDayThatThePersonGoesOnWith) {
  Moved bench;
  bench.directory.Put("TQSYSTEM.DAT", std::string(1038, '\0'));
  bench.desktop.WillAnswer([&](const ui::Box&) {  // a number that is lost
    bench.Do("update Estimates set Status = 2, SchedDate = '2003-10-01' where EstimateNumber = 900");
    return Answer::Ok;
  });
  bench.desktop.WillAnswer(Answer::Yes);
  bench.desktop.otherwise = [](const ui::Box&) { return Answer::Ok; };
  bench.desktop.WillChoose("mnuPopupStatus(5)");
  bench.desktop.WillUse([](ui::Form& form) { form.PressKey(ui::ParseKey("F10")); });
  bench.RightClick(bench.board.week.List1[Moved::kTuesday], 0);
  EXPECT_EQ(bench.desktop.boxes.at(0).title, "Next Number");
  EXPECT_EQ(bench.Ask("select Status || ' ' || SchedDate from Estimates where EstimateNumber > 900"), "2 2003-10-02");
  EXPECT_EQ(bench.Estimates(), 2u);
  EXPECT_EQ(bench.StoredStatus(900), "5");
}

TEST(MovedMeanwhile, AStatusThatIsSetWhileTheHoursAreTypedIsAskedAbout) {
  Moved bench;
  bench.desktop.WillChoose("mnuPopupStatus(5)");
  bench.desktop.WillUse([&](ui::Form& form) {
    bench.TheySet(kCancelled);
    form.PressKey(ui::ParseKey("F10"));
  });
  bench.desktop.WillAnswer(Answer::No);
  bench.WillLeave();
  bench.RightClick(bench.board.week.List1[Moved::kTuesday], 0);
  bench.ExpectAsked(0, "Cancelled", "Arrived");
  EXPECT_EQ(bench.Estimates(), 1u);
  EXPECT_EQ(bench.StoredStatus(900), "6");
}

// Who doesn't go on has read the estimate afresh, while the field still shows what was there before.
TEST(MovedMeanwhile, TheMarkOfAWorkOrderStaysWhereWhoWentBackMerelyLeavesTheComments) {
  const std::string theirs = "Workorder # 000123 Old";
  const auto theyConvert = [&](Moved& bench) { bench.database.lantosData.SetComments(theirs, 900); };
  for (const bool isContinued : {false, true}) {
    Moved bench;
    bench.database.lantosData.SetComments("Old", 900);
    bench.database.estimates.LoadEstimate(900);
    bench.Show(900);
    ASSERT_EQ(bench.board.detail.txtComments.Text(), "Old");
    if (isContinued) bench.desktop.WillChoose("mnuPopupStatus(5)");
    bench.desktop.WillUse([&](ui::Form& form) {
      theyConvert(bench);
      form.PressKey(ui::ParseKey("F10"));
      if (!isContinued) form.PressKey(ui::ParseKey("Esc"));
    });
    bench.desktop.WillAnswer(Answer::No);
    if (isContinued) bench.WillLeave();
    if (isContinued) {
      bench.board.detail.frameDetailView.DoMouseUp(ui::MouseButton::Right);
    } else {
      test::Click(bench.board.commands.cmdReschedule);
    }
    ASSERT_EQ(bench.desktop.boxes.size(), 1u) << isContinued;
    EXPECT_NE(bench.desktop.boxes[0].text.find("\rIt is Workorder # 000123."), std::string::npos);
    bench.board.MoveFocus(&bench.board.detail.txtComments);
    bench.board.MoveFocus(&bench.board.commands.cmdWeekView);
    EXPECT_EQ(bench.StoredComments(), theirs) << isContinued;
    EXPECT_EQ(bench.board.detail.txtComments.Text(), theirs) << isContinued;
  }
}

}  // namespace
}  // namespace lantos
