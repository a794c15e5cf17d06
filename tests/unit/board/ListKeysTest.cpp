#include "board/BookingBench.h"
#include "board/ListKeys.h"

// The lists of the board by keyboard.
namespace lantos {
namespace {

using test::BookingBench;
using test::TextsOf;
using ui::Answer;

struct Keys : BookingBench {
  void Press(std::string_view key) { board.PressKey(ui::ParseKey(key)); }
  // How often each button was clicked.
  void Count(ui::Button& button, int& clicks) {
    button.OnClick = [&clicks] { ++clicks; };
  }
};

struct DayListKeys : Keys {
  DayListKeys() {
    AddEstimate(900, Today(), kArrived);
    AddLabor(900, 1, 100, 6500);
    AddEstimate(901, Today(), kArrived, 8);
    AddEstimate(902, Today(), kArrived);
    database.lantosData.SetComments("Waits", 901);
    Start();
    test::Click(board.commands.cmdDayView);
    board.MoveFocus(&list);
  }
  std::int32_t Selected() const { return list.ListIndex() < 0 ? 0 : list.ItemData(list.ListIndex()); }
  ui::ListBox& list = board.day.List2;
};

TEST(DayList, DownAndUpGoFromEstimateToEstimate) {
  DayListKeys bench;
  for (const std::int32_t number : {900, 901, 902, 902}) {
    bench.Press("Down");
    EXPECT_EQ(bench.Selected(), number);
    EXPECT_EQ(bench.Current().EstimateNumber, number);
    EXPECT_FALSE(bench.list.List(bench.list.ListIndex()).starts_with(' '));
  }
  for (const std::int32_t number : {901, 900, 900}) {
    bench.Press("Up");
    EXPECT_EQ(bench.Selected(), number);
  }
}

TEST(DayList, ShiftMakesNoDifference) {
  DayListKeys bench;
  for (const std::int32_t number : {900, 901, 902}) {
    bench.Press("Shift+Down");
    EXPECT_EQ(bench.Selected(), number);
  }
  bench.Press("Shift+Up");
  EXPECT_EQ(bench.Selected(), 901);
}

TEST(DayList, TheFirstKeyTakesTheFirstEstimateAndAnEmptyDayNone) {
  DayListKeys bench;
  bench.Press("Up");
  EXPECT_EQ(bench.Selected(), 900);
  bench.board.LoadWeek(bench.Today() + 1);
  bench.Press("Down");
  EXPECT_EQ(bench.list.ListIndex(), -1);
}

// Labor that fills more than a page behind the first of three estimates.
TEST(DayList, APageGoesOnFromAnEstimateThatIsLongerThanItself) {
  DayListKeys bench;
  for (int line = 2; line <= 3 * ui::kRowsAPage; ++line) bench.AddLabor(900, line, 100, 6500);
  bench.board.LoadWeek(bench.Today());
  for (const std::int32_t number : {900, 901}) {
    bench.Press("PgDn");
    EXPECT_EQ(bench.Selected(), number);
    EXPECT_EQ(bench.Current().EstimateNumber, number);
  }
  bench.Press("PgUp");
  EXPECT_EQ(bench.Selected(), 900);
  bench.Press("PgUp");
  EXPECT_EQ(bench.list.ListIndex(), 0) << "there is none before";
  bench.Press("End");
  EXPECT_EQ(bench.Selected(), 902);
  bench.Press("PgDn");
  EXPECT_EQ(bench.Selected(), 902) << "there is none behind";
}

TEST(DayList, EnterOpensTheEstimateAndTheHandGoesOnInItsLabor) {
  DayListKeys bench;
  bench.Press("Enter");
  EXPECT_TRUE(bench.board.day.frameDayView.Visible()) << "nothing is selected";
  bench.Press("Down");
  bench.Press("Enter");
  EXPECT_TRUE(bench.board.detail.frameDetailView.Visible());
  EXPECT_EQ(bench.board.Focus(), &bench.board.detail.listLabor);
}

TEST(WeekList, EnterOpensTheEstimate) {
  DayListKeys bench;
  test::Click(bench.board.commands.cmdWeekView);
  bench.board.MoveFocus(&bench.board.week.List1[DayListKeys::kTuesday]);
  bench.Press("Down");
  bench.Press("Enter");
  EXPECT_EQ(bench.board.detail.frameDetailView.Caption(), "Est. # 000900  09/30/2003  Arrived");
  EXPECT_EQ(bench.board.Focus(), &bench.board.detail.listLabor);
}

// Where the hand goes on.

TEST(Focus, AfterAMoveToAnotherDayIsInThatDaysList) {
  DayListKeys bench;
  bench.Press("Down");
  bench.desktop.WillUse([](ui::Form& form) { form.PressKey(ui::ParseKey("F10")); });
  test::Click(bench.board.commands.cmdReschedule);
  EXPECT_EQ(bench.board.Focus(), &bench.list);
}

TEST(Focus, AfterAPaperIsWhereItWas) {
  DayListKeys bench;
  bench.directory.Put("disclaim.txt", "Paid in full.\r\n");
  bench.Press("Down");
  bench.desktop.WillAnswer(Answer::Yes);
  bench.board.FindMenu("mnuPrintEstimate")->DoClick();
  EXPECT_EQ(bench.board.Focus(), &bench.list);
}

// The booking of an estimate leaves its number in the work order, and the counters of both may be alike.
TEST(Focus, AfterAConversionToAWorkOrderOfTheEstimatesNumberIsOnTheWayBackToTheDay) {
  Keys bench;
  bench.directory.Put("TQEMPLOY.DAT", "");
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.Show(900);
  bench.board.detail.listLabor.SetFocus();
  bench.records.system.TakeNumber(sysrec::last_workorder_number);
  bench.workorders.Current.WorkorderNumber = bench.records.system.SysRec.Get(sysrec::last_workorder_number);
  bench.desktop.WillAnswer({Answer::Yes, Answer::Ok, Answer::No, Answer::Ok});
  bench.board.FindMenu("mnuConvertToWO")->DoClick();
  EXPECT_EQ(bench.board.Focus(), &bench.board.commands.cmdDayView);
}

TEST(LaborAndParts, InsertAddsEnterChangesAndDeleteRemoves) {
  Keys bench;
  bench.Fill(900, 7);
  bench.Show(900);
  DetailPane& detail = bench.board.detail;
  int added = 0, changed = 0, removed = 0;
  for (ui::Button* button : {&detail.cmdLaborAdd, &detail.cmdPartAdd}) bench.Count(*button, added);
  for (ui::Button* button : {&detail.cmdLaborChange, &detail.cmdPartChange}) bench.Count(*button, changed);
  for (ui::Button* button : {&detail.cmdLaborRemove, &detail.cmdPartRemove}) bench.Count(*button, removed);
  for (ui::ListBox* list : {&detail.listLabor, &detail.listParts}) {
    added = changed = removed = 0;
    bench.board.MoveFocus(list);
    bench.Press("Insert");
    EXPECT_EQ(std::vector({added, changed, removed}), std::vector({1, 0, 0})) << list->Name();
    bench.Press("Enter");
    EXPECT_EQ(std::vector({added, changed, removed}), std::vector({1, 1, 0})) << list->Name();
    list->DoDoubleClick();
    EXPECT_EQ(std::vector({added, changed, removed}), std::vector({1, 2, 0})) << list->Name();
    bench.Press("Delete");
    bench.Press("Ctrl+Delete");
    EXPECT_EQ(std::vector({added, changed, removed}), std::vector({1, 2, 1})) << list->Name();
    EXPECT_EQ(bench.board.Focus(), list) << "the hand goes on in the list";
  }
}

TEST(LaborAndParts, DeleteAsksAsTheButtonDoes) {
  Keys bench;
  bench.Fill(900, 7);
  bench.Show(900);
  bench.board.MoveFocus(&bench.board.detail.listLabor);
  bench.desktop.WillAnswer(Answer::Yes);
  bench.Press("Delete");
  EXPECT_EQ(TextsOf(bench.board.detail.listLabor)[0].substr(7, 4), "0.25") << "the first one is gone";
  EXPECT_EQ(bench.board.Focus(), &bench.board.detail.listLabor);
}

}  // namespace
}  // namespace lantos
