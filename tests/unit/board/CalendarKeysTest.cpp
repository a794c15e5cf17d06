#include "board/BoardBench.h"

namespace lantos {
namespace {

using test::BoardBench;

TEST(CalendarKeys, AMarkThatTheBoardCannotFollowGoesBack) {
  BoardBench bench;
  frmMain& board = bench.Start();
  board.MonthView1.SetFocus();
  bench.desktop.failuresExpected = true;
  bench.Hide("Estimates");
  board.PressKey(ui::ParseKey("Right"));
  EXPECT_EQ(board.MonthView1.Value(), bench.Today() + 1);
  board.CalendarTimer.DoTick();
  EXPECT_EQ(board.MonthView1.Value(), bench.Today());
  board.MonthView1.DoPick(bench.Today() + 7);
  EXPECT_EQ(board.MonthView1.Value(), bench.Today());
  board.PressKey(ui::ParseKey("Alt+PgDn"));
  EXPECT_EQ(board.MonthView1.Value(), bench.Today());
  EXPECT_EQ(bench.desktop.failures.size(), 3U);
  bench.Reveal("Estimates");
  board.PressKey(ui::ParseKey("Alt+PgDn"));
  EXPECT_EQ(board.MonthView1.Value(), bench.Today() + 7);
  EXPECT_EQ(board.week.frameWeek[BoardBench::kTuesday].Caption(), "Tue 10/7");
}

TEST(CalendarKeys, TheRestEndsOnce) {
  BoardBench bench;
  frmMain& board = bench.Start();
  board.MonthView1.SetFocus();
  board.PressKey(ui::ParseKey("Right"));
  EXPECT_EQ(board.CalendarTimer.Interval(), 500);
  board.CalendarTimer.DoTick();
  EXPECT_EQ(board.CalendarTimer.Interval(), 0);
  EXPECT_EQ(board.hours.lblDate.Caption(), "Wed 10/1");
}

// A click on an estimate of Thursday while the week was loaded for Tuesday.
struct Clicked : BoardBench {
  static constexpr std::size_t kThursday = 4;

  Clicked() {
    AddEstimate(900, Today(), kArrived);
    AddEstimate(901, Today() + 2, kArrived);
    Start();
    Choose(board.week.List1[kThursday], 0);
  }
  void ExpectToStandOn(DaySerial date, const std::string& panelDate) {
    EXPECT_EQ(board.MonthView1.Value(), date);
    EXPECT_EQ(board.day.frameDay.Tag(), std::to_string(date));
    EXPECT_EQ(Hours()[0], panelDate);
    test::Click(board.commands.cmdDayView);
    EXPECT_EQ(board.day.frameDay.Tag(), std::to_string(date));
    EXPECT_EQ(board.MonthView1.Value(), date);
  }
};

TEST(CalendarKeys, LeadBackToTheLoadedDayFromAnEstimateOfAnother) {
  Clicked bench;
  EXPECT_EQ(bench.board.MonthView1.Value(), bench.Today() + 2);
  bench.board.PressKey(ui::ParseKey("Alt+Home"));
  EXPECT_EQ(bench.board.detail.frameDetailView.Caption(), "") << "a load empties it";
  bench.ExpectToStandOn(bench.Today(), "Tue 9/30");
  EXPECT_EQ(test::DataOf(bench.board.day.List2)[0], 900);
}

TEST(CalendarKeys, LeadADayBackFromAnEstimateThatWasClicked) {
  Clicked bench;
  bench.board.week.frameWeek[3].DoClick();
  bench.Choose(bench.board.week.List1[Clicked::kThursday], 0);
  bench.board.PressKey(ui::ParseKey("Alt+Left"));
  bench.ExpectToStandOn(bench.Today() + 1, "Wed 10/1");
}

TEST(CalendarKeys, BringTheHoursBackThatAnOpenedEstimateHasTaken) {
  Clicked bench;
  bench.board.PressKey(ui::ParseKey("Alt+Home"));
  test::Click(bench.board.commands.cmdDetailView);
  bench.board.detail.contents.labor.AddLaborLine(WoLaborLine{.Hours = 100});
  EXPECT_EQ(bench.Hours()[0], "Thu 10/2");
  bench.board.PressKey(ui::ParseKey("Alt+Home"));
  EXPECT_TRUE(bench.board.week.frameWeekView.Visible());
  bench.ExpectToStandOn(bench.Today(), "Tue 9/30");
}

TEST(CalendarKeys, ThatCannotBeFollowedLeaveTheMarkOnTheDayOnShow) {
  Clicked bench;
  bench.desktop.failuresExpected = true;
  bench.Hide("Estimates");
  bench.board.PressKey(ui::ParseKey("Alt+PgDn"));
  EXPECT_EQ(bench.board.MonthView1.Value(), bench.Today() + 2);
  bench.board.MonthView1.DoPick(bench.Today() + 7);
  EXPECT_EQ(bench.board.MonthView1.Value(), bench.Today() + 2);
  EXPECT_EQ(bench.board.day.frameDay.Tag(), std::to_string(bench.Today() + 2));
}

}  // namespace
}  // namespace lantos
