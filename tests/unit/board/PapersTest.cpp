#include "board/BookingBench.h"

// What a customer's copy has from the screen.
namespace lantos {
namespace {

using test::BookingBench;
using test::Texts;
using ui::Answer;

struct Printing : BookingBench {
  Printing() {
    directory.Put("disclaim.txt", "Paid in full.\r\n");
    Fill(900, 7);
  }
  // The customer's copy, which is shown first.
  ui::Report Print() {
    desktop.WillAnswer(Answer::Yes);  // the status isn't Scheduled
    test::Click(board.commands.cmdPrintEstimate);
    return desktop.previews.empty() ? ui::Report{} : desktop.previews.back();
  }
};

std::string LabelOf(const ui::Report& report, std::string_view name) {
  for (const ui::ReportLabel& label : report.design.labels) {
    if (label.name == name) return label.text;
  }
  return "(no such label)";
}

bool HasTaxRow(const ui::Report& report) {
  return std::any_of(report.lines.begin(), report.lines.end(),
                     [](const auto& line) { return !line.empty() && line[0] == "Tax"; });
}

TEST(PrintedEstimate, FromTheDayViewHasItsTotalsAndItsTax) {
  Printing bench;
  frmMain& board = bench.Start();
  bench.Choose(board.week.List1[Printing::kTuesday], 0);
  test::Click(board.commands.cmdDayView);
  EXPECT_EQ(board.detail.txtTotalCost.Text(), "") << "the load has emptied the view";
  const ui::Report report = bench.Print();
  EXPECT_EQ(LabelOf(report, "lblTotal"), "388.42");
  EXPECT_EQ(LabelOf(report, "lblTax"), "21.21");
  EXPECT_EQ(LabelOf(report, "lblCustName"), "Beth Adams");
  EXPECT_TRUE(HasTaxRow(report));
}

// Labor 163.75, and its tax.
constexpr const char* kWithFiftyMore = "441.42";

TEST(PrintedEstimate, OfAListThatWasEmptiedOnTheScreenHasTheTotalsOfItsLines) {
  Printing bench;
  bench.Show(900);
  frmMain& board = bench.board;
  bench.desktop.WillAnswer(Answer::No);
  bench.WillLeave();
  test::Click(board.detail.cmdVehicleEdit);
  WoLaborLine line;
  line.Hours = 100;
  line.Total = 5000;
  line.Desc[0] = "WIPERS";
  board.detail.contents.labor.AddLaborLine(line);
  EXPECT_EQ(bench.Totals()[1], "50.00");
  EXPECT_EQ(LabelOf(bench.Print(), "lblTotal"), kWithFiftyMore);
  EXPECT_EQ(bench.Totals()[6], kWithFiftyMore);
}

TEST(PrintedEstimate, WithALineOfAnotherWorkstationHasItInItsTotals) {
  Printing bench;
  bench.Show(900);
  bench.AddLabor(900, 9, 100, 5000, "WIPERS");
  EXPECT_EQ(bench.Totals()[6], "388.42");
  EXPECT_EQ(LabelOf(bench.Print(), "lblTotal"), kWithFiftyMore);
  EXPECT_EQ(bench.Totals()[6], kWithFiftyMore);
}

struct Renaming : Printing {
  // Inside of the search, which chooses nobody.
  void WillRename() {
    desktop.WillUse([this](ui::Form& form) {
      Customers& customers = records.customers;
      ASSERT_TRUE(customers.MakeCurrent(7));
      customers.CurrentCustomer.Put(customer::Firstname, "Bertha");
      customers.CurrentCustomer.Put(customer::tax_id_number, "31-99");
      ASSERT_TRUE(customers.WriteCustomer());
      form.PressKey(ui::ParseKey("Esc"));
    });
  }
};

TEST(EditedCustomer, InASearchThatChoosesNobodyIsReadAgain) {
  Renaming bench;
  bench.Show(900);
  frmMain& board = bench.board;
  bench.WillRename();
  test::Click(board.detail.cmdCustomerEdit);
  EXPECT_EQ(board.detail.lblCustName.Caption(), "Bertha Adams");
  EXPECT_EQ(bench.Totals()[5], "6.14");
  EXPECT_EQ(test::TextsOf(board.week.List1[Printing::kTuesday])[1], "  Adams,Bertha");
}

TEST(EditedCustomer, InTheSearchOfACancelledBookingIsReadAgain) {
  Renaming bench;
  bench.Show(900);
  frmMain& board = bench.board;
  bench.desktop.WillAnswer({Answer::No, Answer::Ok});
  bench.WillRename();
  test::Click(board.commands.cmdNewEstimate);
  EXPECT_EQ(board.detail.lblCustName.Caption(), "Bertha Adams");
  EXPECT_EQ(test::TextsOf(board.week.List1[Printing::kTuesday])[1], "  Adams,Bertha");
}

TEST(EditedCustomer, IsReadAgainForScreenAndPaper) {
  Renaming bench;
  bench.Show(900);
  frmMain& board = bench.board;
  bench.WillRename();
  board.FindMenu("mnuCustomer")->DoClick();
  EXPECT_EQ(board.detail.lblCustName.Caption(), "Bertha Adams");
  EXPECT_EQ(bench.Totals(), (Texts{"1.25", "113.75", "99.96", "150.00", "3.50", "6.14", "373.35"}));
  EXPECT_EQ(test::TextsOf(board.week.List1[Printing::kTuesday])[1], "  Adams,Bertha");
  EXPECT_EQ(test::TextsOf(board.day.List2)[0].substr(7, 12), "Adams,Bertha");
  EXPECT_EQ(LabelOf(bench.Print(), "lblCustName"), "Bertha Adams");
}

TEST(EditedCustomer, IsReadAgainForAllThatTheBoardLists) {
  Renaming bench;
  bench.AddEstimate(901, bench.Today() + 1, kArrived, 8);
  bench.Show(900);
  frmMain& board = bench.board;
  bench.Choose(board.week.List1[Printing::kTuesday + 1], 0);
  bench.WillRename();
  board.FindMenu("mnuCustomer")->DoClick();
  EXPECT_EQ(test::TextsOf(board.week.List1[Printing::kTuesday])[1], "  Adams,Bertha");
  EXPECT_EQ(board.detail.lblCustName.Caption(), "City School");
}

TEST(ChosenCustomer, PaysItsOwnTaxesAndIsListed) {
  Printing bench;
  bench.Show(900);
  frmMain& board = bench.board;
  bench.WillPickCustomer(8);
  bench.WillLeave();
  test::Click(board.detail.cmdCustomerEdit);
  EXPECT_EQ(bench.Totals()[5], "6.14");
  EXPECT_EQ(test::TextsOf(board.week.List1[Printing::kTuesday])[1], "  School,City");
  const std::string line = test::TextsOf(board.day.List2)[0];
  EXPECT_EQ(line.substr(7, 11), "School,City");
  EXPECT_EQ(line.substr(line.size() - 4), "1.25") << "its hours stay";
}

}  // namespace
}  // namespace lantos
