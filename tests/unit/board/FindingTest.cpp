#include "board/FindBench.h"

// The way from the board through the search to an estimate, and to the technicians' hours.
namespace lantos {
namespace {

using test::FindBench;
using ui::Answer;

struct JumpBench : FindBench {
  void WillFind(std::int32_t customer, int row) {
    desktop.WillUse([customer, row](ui::Form& shown) {
      auto& find = dynamic_cast<frmFind&>(shown);
      find.Combo1.DoSelect(find.Combo1.FindData(customer));
      find.cmdUpdate.DoClick();
      find.List1.DoSelect(row);
      find.cmdSelect.DoClick();
    });
  }
};

TEST(Finding, TheBoardStandsOnTheEstimateThatWasChosen) {
  JumpBench bench;
  bench.AddEstimate(910, bench.Today() + 40, kArrived);
  bench.Start();
  bench.WillFind(7, 8);
  test::Click(bench.board.commands.cmdFind);
  EXPECT_EQ(bench.Current().EstimateNumber, 910);
  EXPECT_EQ(bench.board.MonthView1.Value(), bench.Today() + 40);
  EXPECT_EQ(bench.board.day.frameDay.Caption(), "Sunday, November 9, 2003");
  EXPECT_EQ(bench.board.day.frameDay.Tag(), std::to_string(bench.Today() + 40));
  EXPECT_EQ(test::DataOf(bench.board.week.List1[0]), (std::vector<std::int32_t>{910, 910}));
  EXPECT_EQ(bench.board.detail.DisplayedEstimate(), 910);
  EXPECT_TRUE(bench.board.detail.frameDetailView.Visible());
  EXPECT_EQ(bench.board.Focus(), &bench.board.detail.listLabor);
}

TEST(Finding, WhoCancelsLeavesTheBoardAsItWas) {
  JumpBench bench;
  bench.Show(901);
  bench.WillLeave();
  bench.board.FindMenu("mnuFind")->DoClick();
  EXPECT_EQ(bench.Current().EstimateNumber, 901);
  EXPECT_TRUE(bench.board.detail.frameDetailView.Visible());
}

TEST(Finding, AnEstimateThatIsGoneMeanwhileIsToldAndTheBoardStays) {
  JumpBench bench;
  bench.Show(901);
  bench.desktop.WillUse([&bench](ui::Form& shown) {
    auto& find = dynamic_cast<frmFind&>(shown);
    find.cmdUpdate.DoClick();
    bench.Do("delete from Estimates where EstimateNumber = 902");
    find.List1.DoSelect(6);
    find.cmdSelect.DoClick();
  });
  bench.desktop.WillAnswer(Answer::Ok);
  test::Click(bench.board.commands.cmdFind);
  EXPECT_EQ(bench.desktop.boxes.back().text, "Estimate 000902 is no longer there.");
  EXPECT_EQ(bench.Current().EstimateNumber, 901);
  EXPECT_EQ(bench.board.detail.DisplayedEstimate(), 901);
}

TEST(Finding, CommentsBeingTypedAreKeptFirst) {
  JumpBench bench;
  bench.Show(901);
  bench.board.detail.txtComments.SetFocus();
  bench.board.detail.txtComments.DoType("CALL FIRST");
  bench.WillFind(7, 0);
  bench.board.FindMenu("mnuFind")->DoClick();
  EXPECT_EQ(bench.Stored("Comments", 901), "CALL FIRST");
  EXPECT_EQ(bench.Current().EstimateNumber, 900);
}

TEST(Finding, TheTechniciansHoursOpenOnTheDayOfTheBoard) {
  JumpBench bench;
  bench.directory.Put("TQEMPLOY.DAT", test::EmployeeImage(12, "Dan Ortiz").Bytes());
  bench.Start();
  bench.board.MonthView1.DoPick(bench.Today() - 1);
  bench.desktop.WillUse([](ui::Form& shown) {
    EXPECT_EQ(shown.Name(), "frmTechHours");
    EXPECT_EQ(dynamic_cast<ui::Label&>(*shown.Find("lblDate")).Caption(), "Mon 09/29/2003");
    EXPECT_EQ(dynamic_cast<ui::Button&>(*shown.Find("cmdCancel")).Caption(), "Close");
    test::Press(shown, "Esc");
  });
  test::Click(bench.board.commands.cmdTechHours);
  EXPECT_EQ(bench.desktop.forms.back(), "frmTechHours");
}

}  // namespace
}  // namespace lantos
