#include "board/BoardBench.h"

// The lists, the hours, and what is chosen in them. The detail view and booking have files of their own.
namespace lantos {
namespace {

using test::BoardBench;
using test::DataOf;
using test::Texts;
using test::TextsOf;

std::string MainLine(std::string_view number, std::string_view name, std::string_view phones, std::string_view hours) {
  return fmt::format("{} {:<32} {:<40} {:<32} {:>7}", number, name, phones, "  ", hours);
}
std::string StatusLine(std::string_view date, std::string_view word) {
  return fmt::format("       Created on 09/22/2003, Scheduled for {}, Status = {}", date, word);
}

TEST(LoadWeek, GivesEachEstimateTwoLinesInItsPanelAndItsHoursToTheDay) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddLabor(900, 1, 2800, 1);
  bench.AddEstimate(901, bench.Today(), kScheduled, 99);
  bench.AddLabor(901, 1, 900, 1);
  bench.AddEstimate(902, bench.Today(), kCancelled);
  bench.AddLabor(902, 1, 5000, 1);
  const frmMain& board = bench.Start();
  EXPECT_EQ(
      TextsOf(board.week.List1[BoardBench::kTuesday]),
      (Texts{"000900 Arrived", "  Adams,Beth", "000901 ", "  CUSTOMER,UNKNOWN", "000902 Cancelled", "  Adams,Beth"}));
  EXPECT_EQ(DataOf(board.week.List1[BoardBench::kTuesday]), (std::vector<std::int32_t>{900, 900, 901, 901, 902, 902}));
  EXPECT_EQ(bench.Hours(), (Texts{"Tue 9/30", "40.00", "37.00", "-3.00", "Good"}));
  EXPECT_EQ(board.hours.Frame1.BackColor(), kDayGood.color);
  EXPECT_EQ(board.week.frameWeek[BoardBench::kTuesday].BackColor(), kDayGood.color);
  EXPECT_EQ(board.day.frameDay.BackColor(), kDayGood.color);
  EXPECT_EQ(board.week.frameWeek[0].BackColor(), kDayClosed.color);
  EXPECT_EQ(board.week.frameWeek[0].Caption(), "Sun 9/28");
}

TEST(LoadWeek, GivesTheDayOnShowItsLines) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.database.lantosData.SetComments("  Waits  ", 900);
  bench.AddLabor(900, 1, 150, 9750, "BRAKES\tFRONT");
  bench.AddEstimate(901, bench.Today() + 1, kArrived);
  frmMain& board = bench.Start();
  const Texts lines = {MainLine("000900", "Adams,Beth", " H:555-0142", "1.50"), " ----> Waits",
                       StatusLine("09/30/2003", "Arrived"), "       000012 1.50 65.00 97.50 BRAKES", " "};
  EXPECT_EQ(TextsOf(board.day.List2), lines);
  EXPECT_EQ(DataOf(board.day.List2), std::vector<std::int32_t>(5, 900));
  test::Click(board.commands.cmdDayView);
  board.day.cbShowLabor.DoClick();
  EXPECT_EQ(TextsOf(board.day.List2), Texts(lines.begin(), lines.begin() + 3));
}

TEST(LoadWeek, ReadsAPastScheduledEstimateAsANoShowInTheDayListAlone) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today() - 1, kScheduled);
  bench.AddLabor(900, 1, 200, 1);
  frmMain& board = bench.Start();
  board.LoadWeek(bench.Today() - 1);
  EXPECT_EQ(TextsOf(board.week.List1[1]).front(), "000900 ");
  EXPECT_EQ(TextsOf(board.day.List2)[1], StatusLine("09/29/2003", "No-show"));
  EXPECT_EQ(bench.Stored("Status", 900), "0");
}

TEST(LoadWeek, LeavesTheCurrentEstimateAloneAndClearsTheDetailView) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddEstimate(901, bench.Today(), kCompleted, 8);
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[BoardBench::kTuesday], 0);
  EXPECT_EQ(board.detail.lblCustName.Caption(), "Beth Adams");
  board.LoadWeek(bench.Today() + 7);
  EXPECT_EQ(bench.Current().EstimateNumber, 900);
  EXPECT_EQ(bench.Current().Status, kArrived);
  EXPECT_EQ(
      board.detail.frameDetailView.Caption() + board.detail.lblCustName.Caption() + board.detail.txtTotalCost.Text(),
      "");
}

TEST(LoadWeek, WhenTheDatabaseCannotBeReadTheBoardStaysAsItIs) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddLabor(900, 1, 200, 1);
  bench.AddEstimate(901, bench.Today() + 8, kArrived);
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[BoardBench::kTuesday], 0);
  const Texts hours = bench.Hours();
  const Texts lines = TextsOf(board.day.List2);
  bench.desktop.failuresExpected = true;
  for (const std::string_view table : {"StandardHours", "SpecialDays", "Estimates", "Labors"}) {
    bench.Hide(table);
    board.MonthView1.DoPick(bench.Today() + 7);
    bench.Reveal(table);
    EXPECT_EQ(board.week.frameWeek[BoardBench::kTuesday].Caption(), "Tue 9/30") << table;
    EXPECT_EQ(board.day.frameDay.Caption(), "Tuesday, September 30, 2003") << table;
    EXPECT_EQ(bench.Hours(), hours) << table;
    EXPECT_EQ(TextsOf(board.day.List2), lines) << table;
    EXPECT_EQ(board.detail.lblCustName.Caption(), "Beth Adams") << table;
  }
  EXPECT_EQ(bench.desktop.failures.size(), 4U);
  board.MonthView1.DoPick(bench.Today() + 7);
  EXPECT_EQ(board.week.frameWeek[BoardBench::kTuesday].Caption(), "Tue 10/7");
  EXPECT_TRUE(TextsOf(board.day.List2).empty());
}

TEST(LoadWeek, AStandardHoursTableWithoutItsRowEndsTheEventAlone) {
  BoardBench bench;
  frmMain& board = bench.Start();
  bench.Do("delete from StandardHours");
  bench.desktop.failuresExpected = true;
  board.week.frameWeek[4].DoClick();
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_TRUE(board.IsLoaded());
}

// What is chosen.

TEST(DayList, AClickOnAnyLineSelectsTheMainLineOfItsEstimate) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddEstimate(901, bench.Today(), kCompleted, 8);
  bench.database.lantosData.SetComments("Waits", 901);
  frmMain& board = bench.Start();
  const int main = board.day.List2.FindData(901);
  for (int row = board.day.List2.ListCount() - 1; row >= main; --row) {
    bench.Choose(board.day.List2, 0);
    EXPECT_EQ(bench.Current().EstimateNumber, 900);
    bench.Choose(board.day.List2, row);
    EXPECT_EQ(board.day.List2.ListIndex(), main);
    EXPECT_EQ(board.detail.frameDetailView.Caption(), "Est. # 000901  09/30/2003  Completed");
  }
}

TEST(WeekList, AClickMakesItsDayTheOneOfTheCalendarWithNoReload) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today() + 2, kArrived);
  frmMain& board = bench.Start();
  bench.AddEstimate(901, bench.Today() + 2, kArrived);
  bench.Choose(board.week.List1[4], 1);
  EXPECT_EQ(board.MonthView1.Value(), bench.Today() + 2);
  EXPECT_EQ(board.day.frameDay.Caption(), "Thursday, October 2, 2003");
  EXPECT_EQ(board.day.frameDay.Tag(), std::to_string(bench.Today() + 2));
  EXPECT_EQ(board.week.List1[4].ListCount(), 2);
  EXPECT_EQ(bench.Hours()[0], "Tue 9/30");
}

TEST(DoubleClick, WhereNothingIsSelectedOpensNoEstimate) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today() + 2, kArrived);
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[4], 0);
  board.week.List1[BoardBench::kTuesday].DoDoubleClick();
  EXPECT_TRUE(board.week.frameWeekView.Visible()) << "900 is of Thursday";
  EXPECT_EQ(bench.Hours()[0], "Tue 9/30");
  board.LoadWeek(bench.Today());
  test::Click(board.commands.cmdDayView);
  board.day.List2.DoDoubleClick();
  EXPECT_TRUE(board.day.frameDayView.Visible());
  test::Click(board.commands.cmdWeekView);
  bench.Choose(board.week.List1[4], 0);
  board.week.List1[4].DoDoubleClick();
  EXPECT_TRUE(board.detail.frameDetailView.Visible());
  EXPECT_EQ(bench.Hours()[0], "Thu 10/2");
}

// The status, by popup.

struct Popup : BoardBench {
  Popup() {
    AddEstimate(900, Today(), kArrived);
    AddLabor(900, 1, 200, 1);
    Start();
    week.DoSelect(0);
    day.DoSelect(0);
  }
  ui::ListBox& week = board.week.List1[kTuesday];
  ui::ListBox& day = board.day.List2;
};

TEST(StatusByPopup, PutsTheWordIntoBothListsAndTheCaptionWithoutAReload) {
  Popup bench;
  bench.AddEstimate(901, bench.Today(), kArrived);
  bench.desktop.WillChoose("mnuPopupStatus(2)");
  bench.RightClick(bench.week, 1);
  EXPECT_EQ(bench.Stored("Status", 900), "2");
  EXPECT_EQ(TextsOf(bench.week), (Texts{"000900 In Progress", "  Adams,Beth"})) << "901 shows at the next load";
  EXPECT_EQ(TextsOf(bench.day)[1], StatusLine("09/30/2003", "In Progress"));
  EXPECT_EQ(DataOf(bench.day), (std::vector<std::int32_t>{900, 0, 900, 900}));
  EXPECT_EQ(bench.board.detail.frameDetailView.Caption(), "Est. # 000900  09/30/2003  In Progress");
  bench.desktop.WillChoose("mnuPopupStatus(3)");
  bench.RightClick(bench.day, 1);
  EXPECT_EQ(bench.Stored("Status", 900), "3") << "the line without a number leads to its main line";
}

TEST(StatusByPopup, PassesOverTheCommentLine) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.database.lantosData.SetComments("- first -", 900);
  frmMain& board = bench.Start();
  bench.desktop.WillChoose("mnuPopupStatus(2)");
  bench.RightClick(board.day.List2, 0);
  EXPECT_EQ(TextsOf(board.day.List2)[1], " ----> - first -");
  EXPECT_EQ(TextsOf(board.day.List2)[2], StatusLine("09/30/2003", "In Progress"));
}

TEST(StatusByPopup, LoadsTheWeekWhenTheChangeMovesTheDaysHours) {
  Popup bench;
  bench.AddEstimate(901, bench.Today(), kArrived);
  EXPECT_EQ(bench.Hours()[2], "2.00");
  bench.Current().Status = kScheduled;  // an arrived one isn't offered Cancelled
  bench.desktop.WillChoose("mnuPopupStatus(6)");
  bench.board.detail.frameDetailView.DoMouseUp(ui::MouseButton::Right);
  EXPECT_EQ(bench.Hours()[2], "0.00");
  EXPECT_EQ(TextsOf(bench.week), (Texts{"000900 Cancelled", "  Adams,Beth", "000901 Arrived", "  Adams,Beth"}));
  EXPECT_EQ(bench.board.detail.frameDetailView.Caption(), "Est. # 000900  09/30/2003  Cancelled") << "shown again";
  EXPECT_EQ(bench.board.detail.lblCustName.Caption(), "Beth Adams");
}

TEST(StatusByPopup, DismissedWritesNothing) {
  Popup bench;
  bench.Do("update Estimates set Status = 4");
  bench.desktop.WillChoose("");
  bench.board.detail.frameDetailView.DoMouseUp(ui::MouseButton::Right);
  EXPECT_EQ(bench.Stored("Status", 900), "4");
  EXPECT_EQ(TextsOf(bench.week).front(), "000900 Arrived");
}

TEST(StatusByForm, ChangesTheCurrentEstimateAndShowsTheHourglassMeanwhile) {
  Popup bench;
  bench.desktop.WillUse([&](ui::Form& form) {
    EXPECT_EQ(bench.desktop.pointer, ui::Pointer::Hourglass);
    dynamic_cast<ui::OptionButton&>(*form.Find("Option1(4)")).DoClick();
    form.PressKey(ui::ParseKey("F10"));
  });
  bench.board.commands.cmdChangeStatus.DoClick();
  EXPECT_EQ(bench.desktop.forms, Texts{"frmEstStatus"});
  EXPECT_EQ(bench.desktop.pointer, ui::Pointer::Normal);
  EXPECT_EQ(bench.Stored("Status", 900), "4");
  EXPECT_EQ(TextsOf(bench.week).front(), "000900 Departed");
}

TEST(StatusByForm, SaysWhenNoEstimateIsSelected) {
  BoardBench bench;
  frmMain& board = bench.Start();
  bench.desktop.WillAnswer(ui::Answer::Ok);
  board.commands.cmdChangeStatus.DoClick();
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "No estimate is selected.");
}

TEST(RefreshCustomers, SaysThatItIsDoneOnlyWhenItIs) {
  BoardBench bench;
  frmMain& board = bench.Start();
  bench.desktop.WillAnswer(ui::Answer::Ok);
  board.FindMenu("mnuRefreshCustomer")->DoClick();
  ASSERT_EQ(bench.desktop.boxes.size(), 1U);
  EXPECT_EQ(bench.desktop.boxes[0].text, "Customer information refreshed.");
  EXPECT_EQ(bench.desktop.boxes[0].title, "Refresh Complete.");
  const SharedFile other(bench.directory / "TQCSTTAG.DAT", Access::ReadWrite, Deny::All);
  bench.desktop.WillAnswer(ui::Answer::Cancel);
  board.FindMenu("mnuRefreshCustomer")->DoClick();
  ASSERT_EQ(bench.desktop.boxes.size(), 2U);
  EXPECT_EQ(bench.desktop.boxes[1].text, "Customer tags file locked by another user.");
}

TEST(Window, GrowsToItsLeastSizeWhenItWasMadeSmaller) {
  BoardBench bench;
  frmMain& board = bench.Start();
  board.DoResize(3000, 3000, ui::WindowState::Normal);
  EXPECT_EQ(board.Width(), 640 * ui::kTwipsPerPixel);
  EXPECT_EQ(board.Height(), 480 * ui::kTwipsPerPixel);
}

TEST(DayRollover, EndsTheProcessAtTheNextCommandOfANewDay) {
  BoardBench bench;
  frmMain& board = bench.Start();
  bench.clock.MoveOn(std::int64_t{24} * 60 * 60 * 1000);
  bench.desktop.WillAnswer(ui::Answer::Ok);
  EXPECT_THROW(board.commands.cmdWeekView.DoClick(), test::ProcessEnded);
  EXPECT_EQ(bench.desktop.boxes.at(0).title, "Restart required.");
  EXPECT_EQ(bench.desktop.boxes[0].text,
            "NOTE: This application must be restarted each \r\nday in order to maintain data files integrity."
            "\r\n\r\nStarted date: 09/30/2003\r\nCurrent date: 10/01/2003\r\n\r\nClick OK to exit the application.");
}

}  // namespace
}  // namespace lantos
