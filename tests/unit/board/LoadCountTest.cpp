#include "board/BoardBench.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/WatchedEngine.h"

// How often the board is loaded from the database.
namespace lantos {
namespace {

using test::BoardBench;

struct Counted : BoardBench {
  Counted() {
    AddEstimate(900, Today(), kScheduled);
    database.lantosData.Disconnect();
    // Each load of a week asks for the standard hours once.
    database.lantosData.SetOpener([this] {
      return std::make_unique<test::WatchedEngine>(
          OpenDatabase(directory / "Lantos.mdb", environment.clock),
          [this](std::string_view statement) { loads += statement == hours ? 1 : 0; });
    });
    Start();
    loads = 0;
  }

  const std::string_view hours = FindCommand(kLantosCommands, "GetStdHours").statement;
  int loads = 0;
};

TEST(LoadCount, TheFirstOfTwoClicksOnAPanelLoadsAndTheSecondOpensTheDayView) {
  Counted bench;
  ui::Frame& panel = bench.board.week.frameWeek[1];
  panel.DoClick();
  panel.DoDoubleClick();
  EXPECT_EQ(bench.loads, 1);
  EXPECT_TRUE(bench.board.day.frameDayView.Visible());
  EXPECT_EQ(bench.board.day.frameDay.Tag(), panel.Tag());
}

TEST(LoadCount, ADoubleClickInTheCalendarLoadsOnce) {
  Counted bench;
  const DaySerial nextWeek = bench.environment.Today() + 7;
  bench.board.MonthView1.DoDoublePick(nextWeek);
  EXPECT_EQ(bench.loads, 1);
  EXPECT_TRUE(bench.board.day.frameDayView.Visible());
  EXPECT_EQ(bench.board.day.frameDay.Tag(), std::to_string(nextWeek));
}

TEST(LoadCount, ASecondClickThatComesAloneLoads) {
  Counted bench;
  bench.board.week.frameWeek[1].DoDoubleClick();
  EXPECT_EQ(bench.loads, 1);
  EXPECT_EQ(bench.board.day.frameDay.Tag(), bench.board.week.frameWeek[1].Tag());
}

TEST(LoadCount, TheButtonOfTheDayViewAlwaysLoads) {
  Counted bench;
  bench.board.week.frameWeek[1].DoClick();
  bench.board.commands.cmdDayView.DoClick();
  EXPECT_EQ(bench.loads, 2);
}

}  // namespace
}  // namespace lantos
