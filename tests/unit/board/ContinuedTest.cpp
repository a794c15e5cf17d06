#include "board/BookingBench.h"

// What is carried on to the next day stands there at once, with its hours.
namespace lantos {
namespace {

using test::BookingBench;
using test::Texts;
using test::TextsOf;
using ui::Answer;

// An arrived estimate of today with four hours of labor, chosen in the week.
struct Continued : BookingBench {
  static constexpr std::size_t kWednesday = 3;

  Continued() {
    directory.Put("TQEMPLOY.DAT", "");
    AddEstimate(900, Today(), kArrived);
    AddLabor(900, 1, 400, 26000);
    Start();
    environment.statusOptions.letters[static_cast<std::size_t>(StatusOption::ContinuedAutoSchedule)] = 'Y';
    Choose(board.week.List1[kTuesday], 0);
  }
  void WillApplyAnHour() {
    desktop.WillUse([](ui::Form& form) {
      dynamic_cast<ui::TextBox&>(*form.Find("txtHours")).DoType("1");
      form.PressKey(ui::ParseKey("F10"));
    });
  }
  // Its message.
  void WillEnd() { desktop.WillAnswer(Answer::Ok); }
  void ExpectTheCopyOnTheBoard() {
    EXPECT_EQ(TextsOf(board.week.List1[kTuesday]).at(0), "000900 Continued");
    EXPECT_EQ(TextsOf(board.week.List1[kWednesday]), (Texts{"001001 Arrived", "  Adams,Beth"}));
    EXPECT_EQ(board.week.lblWeekHours[kWednesday].Caption(), "Scheduled 3.00\nof 40.00: Under");
    EXPECT_EQ(board.detail.frameDetailView.Caption(), "Est. # 000900  09/30/2003  Continued");
    EXPECT_EQ(Totals()[0], "4.00") << "shown again";
  }
};

TEST(ContinuedEstimate, ByThePopupOfAListIsOnTheNextDay) {
  Continued bench;
  bench.desktop.WillChoose("mnuPopupStatus(5)");
  bench.WillApplyAnHour();
  bench.WillEnd();
  bench.RightClick(bench.board.week.List1[Continued::kTuesday], 0);
  bench.ExpectTheCopyOnTheBoard();
}

TEST(ContinuedEstimate, ByThePopupOfTheDetailViewIsOnTheNextDay) {
  Continued bench;
  test::Click(bench.board.commands.cmdDetailView);
  bench.desktop.WillChoose("mnuPopupStatus(5)");
  bench.WillApplyAnHour();
  bench.WillEnd();
  bench.board.detail.frameDetailView.DoMouseUp(ui::MouseButton::Right);
  bench.ExpectTheCopyOnTheBoard();
}

TEST(ContinuedEstimate, ByTheFormIsOnTheNextDay) {
  Continued bench;
  bench.desktop.WillUse([](ui::Form& form) {
    dynamic_cast<ui::OptionButton&>(*form.Find("Option1(5)")).DoClick();
    form.PressKey(ui::ParseKey("F10"));
  });
  bench.WillApplyAnHour();
  bench.WillEnd();
  test::Click(bench.board.commands.cmdChangeStatus);
  bench.ExpectTheCopyOnTheBoard();
}

TEST(ContinuedEstimate, ThatIsStoppedLoadsNothing) {
  Continued bench;
  bench.AddEstimate(901, bench.Today(), kArrived);
  bench.desktop.WillChoose("mnuPopupStatus(5)");
  bench.WillLeave();
  bench.RightClick(bench.board.week.List1[Continued::kTuesday], 0);
  EXPECT_EQ(TextsOf(bench.board.week.List1[Continued::kTuesday]), (Texts{"000900 Arrived", "  Adams,Beth"}));
}

TEST(ContinuedEstimate, ThatTheDatabaseRefusesComesBackToTheHoursThatWereTyped) {
  Continued bench;
  bench.desktop.failuresExpected = true;
  bench.Do("create trigger Refuse before insert on Estimates begin select raise(abort, 'no'); end");
  bench.desktop.WillChoose("mnuPopupStatus(5)");
  bench.WillApplyAnHour();
  bench.desktop.WillUse([&](ui::Form& form) {
    EXPECT_EQ(dynamic_cast<ui::TextBox&>(*form.Find("txtHours")).Text(), "1.00");
    bench.Do("drop trigger Refuse");
    form.PressKey(ui::ParseKey("F10"));
  });
  bench.WillEnd();
  bench.RightClick(bench.board.week.List1[Continued::kTuesday], 0);
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_EQ(TextsOf(bench.board.week.List1[Continued::kTuesday]).at(0), "000900 Continued");
  EXPECT_EQ(bench.board.week.lblWeekHours[Continued::kWednesday].Caption(), "Scheduled 3.00\nof 40.00: Under");
}

TEST(ContinuedEstimate, WhoseLastStepIsRefusedHasItsCopyOnTheBoard) {
  Continued bench;
  bench.desktop.failuresExpected = true;
  bench.Do(
      "create trigger Refuse before update of Status on Estimates when old.EstimateNumber = 900 "
      "begin select raise(abort, 'no'); end");
  bench.desktop.WillChoose("mnuPopupStatus(5)");
  bench.WillApplyAnHour();
  bench.WillLeave();
  bench.RightClick(bench.board.week.List1[Continued::kTuesday], 0);
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_EQ(TextsOf(bench.board.week.List1[Continued::kTuesday]).at(0), "000900 Arrived");
  EXPECT_EQ(TextsOf(bench.board.week.List1[Continued::kWednesday]).at(0), "001001 Arrived");
}

// The message stands for as long as nobody clicks it away.
TEST(ContinuedEstimate, ThatGotAnotherStatusWhileItsMessageWasUpIsAskedAbout) {
  for (const bool isByForm : {true, false}) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      Continued bench;
      if (!isByForm) bench.desktop.WillChoose("mnuPopupStatus(5)");
      if (isByForm) {
        bench.desktop.WillUse([](ui::Form& form) {
          dynamic_cast<ui::OptionButton&>(*form.Find("Option1(5)")).DoClick();
          form.PressKey(ui::ParseKey("F10"));
        });
      }
      bench.WillApplyAnHour();
      bench.desktop.WillAnswer([&](const ui::Box& box) {
        EXPECT_EQ(box.title, "Continued...");
        EXPECT_EQ(bench.StoredStatus(900), "5");
        bench.Do("update Estimates set Status = 6 where EstimateNumber = 900");
        return Answer::Ok;
      });
      bench.desktop.WillAnswer([&](const ui::Box& box) {
        EXPECT_EQ(box.text,
                  "Estimate # 000900 was changed by another user since it was shown here.\r\rIts status is "
                  "'Cancelled', not 'Continued'.\r\rDo you wish to continue?");
        return answer;
      });
      if (isByForm) {
        test::Click(bench.board.commands.cmdChangeStatus);
      } else {
        bench.RightClick(bench.board.week.List1[Continued::kTuesday], 0);
      }
      EXPECT_EQ(bench.StoredStatus(900), answer == Answer::Yes ? "5" : "6");
      EXPECT_EQ(TextsOf(bench.board.week.List1[Continued::kTuesday]).at(0),
                answer == Answer::Yes ? "000900 Continued" : "000900 Cancelled");
      EXPECT_EQ(bench.Ask("select count(*) from Estimates"), "2") << "continued once";
    }
  }
}

// Whichever step is refused, the next try goes on with the copy of the first, with the hours of the second.
TEST(ContinuedEstimate, ThatIsTriedAgainIsCopiedOnce) {
  for (const char* refused :
       {"insert on Labors when new.EstimateNumber = 1001", "insert on Labors when new.Description like 'HOURS%'",
        "update of Status on Estimates when old.EstimateNumber = 1001 and old.CustomerNumber = 7",
        "update of Status on Estimates when old.EstimateNumber = 900"}) {
    Continued bench;
    bench.desktop.failuresExpected = true;
    bench.Do(std::string("create trigger Refuse before ") + refused + " begin select raise(abort, 'no'); end");
    bench.desktop.WillChoose("mnuPopupStatus(5)");
    bench.WillApplyAnHour();
    bench.desktop.WillUse([&](ui::Form& form) {
      EXPECT_EQ(dynamic_cast<ui::TextBox&>(*form.Find("txtHours")).Text(), "1.00");
      dynamic_cast<ui::TextBox&>(*form.Find("txtHours")).DoType("2");
      bench.Do("drop trigger Refuse");
      form.PressKey(ui::ParseKey("F10"));
    });
    bench.WillEnd();
    bench.RightClick(bench.board.week.List1[Continued::kTuesday], 0);
    ASSERT_EQ(bench.desktop.failures.size(), 1U) << refused;
    EXPECT_EQ(bench.desktop.failures[0].rfind("Estimate # 001001 was made on Wed 10/01/2003 as a copy", 0), 0U);
    EXPECT_EQ(TextsOf(bench.board.week.List1[Continued::kTuesday]).at(0), "000900 Continued");
    EXPECT_EQ(TextsOf(bench.board.week.List1[Continued::kWednesday]), (Texts{"001001 Arrived", "  Adams,Beth"}));
    EXPECT_EQ(bench.Ask("select count(*) from Estimates"), "2") << refused;
    EXPECT_EQ(bench.Ask("select sum(LaborHours) from Labors where EstimateNumber = 1001"), "200") << refused;
  }
}

}  // namespace
}  // namespace lantos
