#include "printing/EstimateReport.h"

#include "printing/PrintingBench.h"
#include "records/Customers.h"

namespace lantos {
namespace {

using test::LabelOf;
using test::Rows;

class EstimateOnPaper : public testing::Test, protected test::PrintingBench {
 protected:
  ui::Report Make(const TotalTexts& totals = {}) {
    return EstimateReport(environment, records, database).Make(customer, totals);
  }
};

TEST_F(EstimateOnPaper, AnEmptyTaxBoxHasNoTaxRow) {
  EXPECT_EQ(Make().lines, Rows{});
  EXPECT_EQ(Make({"", "", "", "", "0.00", ""}).lines, (Rows{{"Tax", " ", " ", "0.00"}, {" ", " ", " ", " "}}));
}

TEST_F(EstimateOnPaper, AReportWithoutRowsHasItsHeaders) {
  customer.Put(customer::Firstname, "Beth");
  customer.Put(customer::Lastname, "Adams");
  const ui::Report report = Make();
  EXPECT_EQ(report.title, "Estimate 1001");
  EXPECT_EQ(LabelOf(report, "lblCustName"), "Beth Adams");
  EXPECT_EQ(LabelOf(report, "lblDate"), "09/30/2003");
  EXPECT_EQ(LabelOf(report, "lblPrintTime"), "08:15 AM");
  EXPECT_EQ(LayOut(report).pages.size(), 1u);
}

TEST_F(EstimateOnPaper, TotalsAreTheTextsHandedOver) {
  const ui::Report report = Make({"1", "2", "three", "4", "5", "6"});
  EXPECT_EQ(LabelOf(report, "lblLabor"), "1");
  EXPECT_EQ(LabelOf(report, "lblParts"), "2");
  EXPECT_EQ(LabelOf(report, "lblSublet"), "three");
  EXPECT_EQ(LabelOf(report, "lblWaste"), "4");
  EXPECT_EQ(LabelOf(report, "lblTax"), "5");
  EXPECT_EQ(LabelOf(report, "lblTotal"), "6");
}

TEST_F(EstimateOnPaper, RowsWithoutATechnicianOrAmountsReadAsZero) {
  Do("insert into Labors (EstimateNumber, LaborNumber, Description) values (1001, 1, 'Look')");
  Do("insert into Parts (EstimateNumber, PartNumber) values (1001, 'X')");
  EXPECT_EQ(Make().lines, (Rows{{"____Labor____", " ", " ", " "},
                                {"000000 Look", "0.00", "0.00", "0.00"},
                                {" ", " ", " ", " "},
                                {"____Parts____", " ", " ", " "},
                                {"X ", "0", "0.00", "0.00"},
                                {" ", " ", " ", " "}}));
}

TEST_F(EstimateOnPaper, ALineOfLaborIsCutAt64Characters) {
  const std::string longest(64, 'x');
  database.lantosData.AddLabor(1001, 1, longest + "yz\t" + longest, 100, 6500, 6500, 999999);
  const Rows lines = Make().lines;
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[1][0], "999999 " + longest);
  EXPECT_EQ(lines[2][0], "       " + longest);
}

TEST_F(EstimateOnPaper, WithoutADisclaimerItFails) {
  std::filesystem::remove(directory / "DISCLAIM.TXT");
  EXPECT_THROW(Make(), FileError);
  directory.Put("DISC_EST.TXT", "Ours.");
  EXPECT_EQ(LabelOf(Make(), "lblDisclaimer"), "Ours.");
}

TEST_F(EstimateOnPaper, TheDisclosureIsOnItsOwnDesignAlone) {
  EXPECT_EQ(Make().design.name, "rptEstimate");
  Options().PrintDisclosure = true;
  EXPECT_EQ(Make().design.name, "rptEstimate2");
  EXPECT_EQ(LabelOf(Make(), "lblDisclosure").substr(0, 12), "Please read ");
  directory.Put("DISCLOSURE.TXT", "One line.\r\n");
  EXPECT_EQ(LabelOf(Make(), "lblDisclosure"), "One line.");
}

}  // namespace
}  // namespace lantos
