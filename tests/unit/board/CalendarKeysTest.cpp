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

}  // namespace
}  // namespace lantos
