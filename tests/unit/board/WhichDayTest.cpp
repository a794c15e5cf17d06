#include "board/BookingBench.h"
#include "frame/Dates.h"

// Which day is meant is always to be seen, and what is shown of a day or an estimate is its own.
namespace lantos {
namespace {

using test::BoardBench;
using test::BookingBench;
using test::Texts;
using test::TextsOf;
using ui::Answer;

constexpr std::size_t kThursday = 4;
constexpr const char* kMark = "\xBB New estimates";

// A panel each: where new estimates are booked.
std::vector<std::size_t> MarkedPanels(const frmMain& board) {
  std::vector<std::size_t> marked;
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    if (board.week.lblWeekMark[i].Caption() == kMark) marked.push_back(i);
  }
  return marked;
}

TEST(MarkedPanel, IsTheOneOfTheDayThatNewEstimateBooksOn) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today() + 2, kArrived);
  frmMain& board = bench.Start();
  EXPECT_EQ(MarkedPanels(board), std::vector<std::size_t>{BoardBench::kTuesday});
  bench.Choose(board.week.List1[kThursday], 0);
  EXPECT_EQ(MarkedPanels(board), std::vector<std::size_t>{BoardBench::kTuesday})
      << "an estimate's click chooses no day";
  EXPECT_EQ(board.commands.cmdNewEstimate.ToolTip(), "Book an estimate on Tue 09/30/2003");
  board.week.frameWeek[kThursday].DoClick();
  EXPECT_EQ(MarkedPanels(board), std::vector<std::size_t>{kThursday});
  EXPECT_EQ(board.commands.cmdNewEstimate.ToolTip(), "Book an estimate on Thu 10/02/2003");
}

TEST(PanelHours, AreToldInWordsAndNumbers) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddLabor(900, 1, 4600, 1);
  const frmMain& board = bench.Start();
  EXPECT_EQ(board.week.lblWeekHours[BoardBench::kTuesday].Caption(), "Scheduled 46.00\nof 40.00: Over");
  EXPECT_EQ(board.week.lblWeekHours[0].Caption(), "Scheduled 0.00\nof 0.00: Closed");
  EXPECT_EQ(board.week.frameWeek[BoardBench::kTuesday].Caption(), "Tue 9/30");
}

TEST(Booking, StandsOnItsOwnDayWhateverDayWasClickedSince) {
  BookingBench bench;
  bench.AddEstimate(900, bench.Today() + 2, kArrived);
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[kThursday], 0);
  EXPECT_EQ(board.MonthView1.Value(), bench.Today() + 2);
  bench.desktop.WillAnswer(Answer::No);
  bench.WillPickCustomer(7);
  bench.WillLeave();
  test::Click(board.commands.cmdNewEstimate);
  EXPECT_EQ(bench.Stored("SchedDate", 1001), FormatDate(bench.Today()));
  EXPECT_EQ(TextsOf(board.week.List1[kThursday]), (Texts{"000900 Arrived", "  Adams,Beth"}));
  EXPECT_EQ(TextsOf(board.week.List1[BoardBench::kTuesday]), (Texts{"001001 ", "  Adams,Beth"}));
  EXPECT_EQ(board.MonthView1.Value(), bench.Today());
  EXPECT_EQ(board.day.frameDay.Tag(), std::to_string(bench.Today()));
  EXPECT_EQ(bench.Hours()[0], "Tue 9/30");
  EXPECT_EQ(board.Focus(), &board.detail.txtComments);
}

TEST(Booking, NamesItsDayInTheCaptionOfTheCustomerSearch) {
  BookingBench bench;
  frmMain& board = bench.Start();
  board.week.frameWeek[kThursday].DoClick();
  bench.desktop.WillAnswer({Answer::No, Answer::Ok});
  bench.desktop.WillUse([](ui::Form& form) {
    EXPECT_EQ(form.Caption(), "Customer Search - New Estimate on Thu 10/02/2003");
    form.PressKey(ui::ParseKey("Esc"));
  });
  test::Click(board.commands.cmdNewEstimate);
  bench.desktop.WillUse([](ui::Form& form) {
    EXPECT_EQ(form.Caption(), "Customer Search");
    form.PressKey(ui::ParseKey("Esc"));
  });
  board.FindMenu("mnuCustomer")->DoClick();
}

// An estimate's click has taken the calendar to its day, with nothing loaded.
TEST(CalendarMark, GoesBackToTheDayOnShowWhenAnotherCannotBeRead) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today() + 2, kArrived);
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[kThursday], 0);
  bench.desktop.failuresExpected = true;
  bench.Hide("Estimates");
  board.MonthView1.DoPick(bench.Today() + 7);
  bench.Reveal("Estimates");
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_EQ(board.MonthView1.Value(), bench.Today() + 2);
  EXPECT_EQ(board.day.frameDay.Tag(), std::to_string(bench.Today() + 2));
}

// A day that is empty was chosen all the same.
TEST(EmptyDay, PickedInTheCalendarIsTheDayWhoseCommentIsShown) {
  BoardBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.Do("insert into SpecialDays (SpecialDate, SpecialHours, SpecialDesc) values ('2003-09-30', 8, 'Stocktaking')");
  bench.Do("insert into SpecialDays (SpecialDate, SpecialHours, SpecialDesc) values ('2003-10-02', 0, 'Holiday')");
  frmMain& board = bench.Start();
  board.MonthView1.DoDoublePick(bench.Today() + 2);
  EXPECT_EQ(board.day.lblDayComments.Caption(), "Holiday");
  board.MonthView1.DoDoublePick(bench.Today() + 3);
  EXPECT_EQ(board.day.lblDayComments.Caption(), "");
}

TEST(Hours, OfLaborGoToTheDayOfTheirEstimate) {
  BookingBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddLabor(900, 1, 200, 1);
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[BoardBench::kTuesday], 0);
  board.LoadWeek(bench.Today() + 7);
  test::Click(board.commands.cmdDetailView);
  bench.desktop.WillAnswer(Answer::Yes);
  test::Click(board.detail.cmdLaborRemove);
  EXPECT_EQ(bench.Hours(), (Texts{"Tue 10/7", "40.00", "0.00", "-40.00", "Under"})) << "another week's hours";
  board.LoadWeek(bench.Today());
  board.week.frameWeek[kThursday].DoClick();
  test::Click(board.commands.cmdDetailView);
  board.detail.contents.labor.AddLaborLine(WoLaborLine{.Hours = 4600});
  EXPECT_EQ(board.week.lblWeekHours[BoardBench::kTuesday].Caption(), "Scheduled 46.00\nof 40.00: Over");
  EXPECT_EQ(board.week.lblWeekHours[kThursday].Caption(), "Scheduled 0.00\nof 40.00: Under");
}

// What the last load kept out of the day's hours takes nothing from them, and adds nothing.
TEST(Hours, OfAnEstimateThatTheFilterHidesCountNowhere) {
  BookingBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddLabor(900, 1, 200, 1);
  bench.AddEstimate(901, bench.Today(), kInProgress);
  bench.AddLabor(901, 1, 300, 1);
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[BoardBench::kTuesday], 0);
  board.FindMenu("mnuShowStat(1)")->DoClick();
  test::Click(board.commands.cmdDetailView);
  board.detail.contents.labor.AddLaborLine(WoLaborLine{.Hours = 100});
  EXPECT_EQ(bench.Hours()[2], "6.00") << "the board still lists it";
  board.LoadWeek(bench.Today());
  test::Click(board.commands.cmdDetailView);
  board.detail.contents.labor.AddLaborLine(WoLaborLine{.Hours = 4600});
  EXPECT_EQ(bench.Hours(), (Texts{"Tue 9/30", "40.00", "3.00", "-37.00", "Under"}));
  board.detail.listLabor.DoSelect(0);
  bench.desktop.WillAnswer(Answer::Yes);
  test::Click(board.detail.cmdLaborRemove);
  EXPECT_EQ(bench.Hours()[2], "3.00");
}

TEST(Hours, OfABookedEstimateCountWhereItIsListed) {
  BookingBench bench;
  frmMain& board = bench.Start();
  bench.desktop.WillAnswer(Answer::No);
  bench.WillPickCustomer(7);
  bench.WillLeave();
  test::Click(board.commands.cmdNewEstimate);
  board.detail.contents.labor.AddLaborLine(WoLaborLine{.Hours = 250});
  EXPECT_EQ(bench.Hours()[2], "2.50");
}

struct Status : BoardBench {
  void WillSet(std::string option) {
    desktop.WillUse([this, option = std::move(option)](ui::Form& form) {
      caption = form.Caption();
      dynamic_cast<ui::OptionButton&>(*form.Find(option)).DoClick();
      form.PressKey(ui::ParseKey("F10"));
    });
  }
  std::string caption;
};

TEST(StatusForm, NamesTheEstimateItChanges) {
  Status bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[BoardBench::kTuesday], 0);
  bench.WillSet("Option1(4)");
  board.commands.cmdChangeStatus.DoClick();
  EXPECT_EQ(bench.caption, "Change Status - Est. # 000900");
}

TEST(StatusForm, OfAnEstimateOfAnotherWeekMovesCalendarAndBoardTogether) {
  Status bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.Do("insert into SpecialDays (SpecialDate, SpecialHours, SpecialDesc) values ('2003-10-08', 0, 'Holiday')");
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[BoardBench::kTuesday], 0);
  board.MonthView1.DoPick(bench.Today() + 7);
  EXPECT_EQ(board.week.lblWeekComment.Caption(), "Wed 10/8: Holiday");
  bench.WillSet("Option1(6)");
  board.commands.cmdChangeStatus.DoClick();
  EXPECT_EQ(board.week.frameWeek[BoardBench::kTuesday].Caption(), "Tue 9/30");
  EXPECT_EQ(board.MonthView1.Value(), bench.Today());
  EXPECT_EQ(board.week.lblWeekComment.Caption(), "");
}

// The line that is selected may be another one's.
TEST(StatusWord, StandsBesideItsOwnEstimateAlone) {
  BookingBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  frmMain& board = bench.Start();
  bench.Choose(board.day.List2, 0);
  bench.Choose(board.week.List1[BoardBench::kTuesday], 0);
  bench.desktop.WillAnswer(Answer::No);
  bench.WillPickCustomer(8);
  bench.WillLeave();
  test::Click(board.commands.cmdNewEstimate);
  bench.desktop.WillUse([](ui::Form& form) {
    dynamic_cast<ui::OptionButton&>(*form.Find("Option1(3)")).DoClick();
    form.PressKey(ui::ParseKey("F10"));
  });
  board.commands.cmdChangeStatus.DoClick();
  EXPECT_EQ(TextsOf(board.week.List1[BoardBench::kTuesday]),
            (Texts{"000900 Arrived", "  Adams,Beth", "001001 Completed", "  School,City"}));
  EXPECT_NE(TextsOf(board.day.List2)[1].find("Status = Arrived"), std::string::npos);
  EXPECT_NE(TextsOf(board.day.List2)[4].find("Status = Completed"), std::string::npos);
}

TEST(StatusWord, ChangedByThePopupOfTheDetailViewReachesTheLists) {
  BookingBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.Show(900);
  frmMain& board = bench.board;
  bench.desktop.WillChoose("mnuPopupStatus(2)");
  board.detail.frameDetailView.DoMouseUp(ui::MouseButton::Right);
  EXPECT_EQ(TextsOf(board.week.List1[BoardBench::kTuesday]).front(), "000900 In Progress");
  EXPECT_NE(TextsOf(board.day.List2)[1].find("Status = In Progress"), std::string::npos);
}

TEST(TheChosenRow, IsTheOnlyOneThatLooksSelectedInTheWeek) {
  BookingBench bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddEstimate(901, bench.Today() + 1, kArrived);
  bench.AddEstimate(902, bench.Today(), kArrived);
  frmMain& board = bench.Start();
  ui::ListBox& tuesday = board.week.List1[BookingBench::kTuesday];
  ui::ListBox& wednesday = board.week.List1[BookingBench::kTuesday + 1];
  bench.Choose(tuesday, 0);
  bench.Choose(wednesday, 1);
  EXPECT_EQ(tuesday.ListIndex(), -1);
  EXPECT_EQ(wednesday.ListIndex(), 1);
  bench.Choose(tuesday, 1);
  EXPECT_EQ(tuesday.ListIndex(), 1);
  EXPECT_EQ(wednesday.ListIndex(), -1);
  bench.Choose(board.day.List2, board.day.List2.FindData(900));
  EXPECT_EQ(tuesday.ListIndex(), 1) << "it is of that estimate";
  bench.Choose(board.day.List2, board.day.List2.FindData(902));
  EXPECT_EQ(tuesday.ListIndex(), -1);
  EXPECT_EQ(bench.Current().EstimateNumber, 902);
}

}  // namespace
}  // namespace lantos
