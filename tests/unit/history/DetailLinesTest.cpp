// What a past work order holds, line by line.
#include "history/DetailLines.h"

#include "HistoryShop.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DetailLinesTest : public HistoryShop {
 protected:
  DetailLinesTest() { ClearWorkorder(order); }
  DetailLines Composed() const { return ComposeDetail(order, checks, environment.shopOptions.PaymentMethodNames); }
  std::vector<std::string> Plain() const { return Composed().plain; }
  static WoLaborLine Labor(const std::string& text) {
    WoLaborLine line;
    line.Desc[0] = text;
    return line;
  }

  Workorder order;
  CheckListTable checks{environment};
};

TEST_F(DetailLinesTest, AnEmptyOneHasNoGroups) { EXPECT_THAT(Plain(), IsEmpty()); }

TEST_F(DetailLinesTest, PartsWithTheirCostInTheOtherList) {
  order.Parts.Add({"PF47", "OIL FILTER", 2, 310, 699, 750});
  order.Parts.Add({"free", "removed", 1, 1, 1, 1});
  order.Parts.Add({"12345678901234567890", "x2345678901234567890123456789012345678", -1, 0, 99999999, 0});
  const DetailLines lines = Composed();
  EXPECT_THAT(lines.plain,
              ElementsAre("____Parts____",
                          "PF47                 OIL FILTER                                  2       6.99      13.98",
                          "12345678901234567890 x2345678901234567890123456789012345678     -1  999999.99 -999999.99"));
  EXPECT_THAT(
      lines.withCost,
      ElementsAre(
          "____Parts____",
          "PF47                 OIL FILTER                                  2       6.99      13.98       3.10",
          "12345678901234567890 x2345678901234567890123456789012345678     -1  999999.99 -999999.99       0.00"));
}

// "\xC9\x92" would be one character in another encoding.
TEST_F(DetailLinesTest, ColumnsLineUpWhateverTheLetters) {
  order.Parts.Add({"CAF\xC9\x92S", "CAF\xC9\x92S", 1, 0, 100, 0});
  order.Parts.Add({"CAFEXS", "CAFEXS", 1, 0, 100, 0});
  order.Sublets.Add({"CAF\xC9\x92S", "\xC9\x92", 0, 100, "", 'N'});
  order.Sublets.Add({"CAFEXS", "EX", 0, 100, "", 'N'});
  const std::vector<std::string> lines = Plain();
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[1].size(), lines[2].size());
  EXPECT_EQ(lines[4].size(), lines[5].size());
}

TEST_F(DetailLinesTest, AnExtensionThatThirtyTwoBitsCanNotHoldIsWhole) {
  order.Parts.Add({"P", "D", 32767, 0, 2000000000, 0});
  EXPECT_THAT(Plain()[1], testing::EndsWith(" 655340000000.00"));
}

TEST_F(DetailLinesTest, LaborWithItsFurtherLines) {
  WoLaborLine labor = Labor("TIMING BELT");
  labor.Mechanic = 12;
  labor.Hours = 250;
  labor.Rate = 6500;
  labor.Total = 16250;
  labor.Desc[2] = "CHECK WATER PUMP";
  order.Labor.Add(labor);
  order.Labor.Add(Labor(""));
  EXPECT_THAT(Plain(), ElementsAre("____Labor____", "000012    2.50      65.00     162.50  TIMING BELT",
                                   "     CHECK WATER PUMP", "000000    0.00       0.00       0.00  "));
}

TEST_F(DetailLinesTest, AFollowupByMilesByDaysOrOnADay) {
  const auto followup = [this](std::int32_t miles, std::int32_t days, FileDate date) {
    WoLaborLine labor = Labor("A");
    labor.FollowupMiles = miles;
    labor.FollowupDays = days;
    labor.FollowupDate = date;
    order.Labor.Clear();
    order.Labor.Add(labor);
    const std::vector<std::string> lines = Plain();
    return lines.size() == 3 ? lines[2] : std::string("none");
  };
  EXPECT_EQ(followup(3000, 0, kTodayInFiles), "     Followup in 3000 miles on 09/30/2003");
  EXPECT_EQ(followup(0, 90, kTodayInFiles), "     Followup in 90 days  on 09/30/2003");
  EXPECT_EQ(followup(3000, 90, kTodayInFiles), "     Followup in 3000 miles on 09/30/2003");
  EXPECT_EQ(followup(0, 0, kTodayInFiles), "     Followup on 09/30/2003");
  EXPECT_EQ(followup(3000, 0, 0), "     Followup in 3000 miles");
  EXPECT_EQ(followup(0, 0, 37894), "     Followup on 09/30/2003") << "a bare serial";
  EXPECT_EQ(followup(0, 0, 0), "none");
}

TEST_F(DetailLinesTest, SubletsAndWasteWithInvoiceAndDescription) {
  order.Sublets.Add({"Riverside Radiator", "81120", 18900, 24570, "RECORE RADIATOR\t\tBY FRIDAY", 'Y'});
  order.Sublets.Add({"SURCHARGE", "999", 0, 500, "SHOP SUPPLIES", 'N'});
  order.Waste.Add({"Oil disposal", "", 120, 250, "", ' '});
  const DetailLines lines = Composed();
  EXPECT_THAT(lines.plain, ElementsAre("____Sublets____", "Riverside Radiator              81120          245.70",
                                       "     RECORE RADIATOR", "     BY FRIDAY",
                                       "SURCHARGE                                        5.00", "     SHOP SUPPLIES",
                                       "____Waste/Misc____", "Oil disposal                                     2.50"));
  EXPECT_EQ(lines.withCost[1], lines.plain[1] + "     189.00");
  EXPECT_EQ(lines.withCost[2], lines.plain[2]);
  EXPECT_EQ(lines.withCost[7], lines.plain[7] + "       1.20");
}

TEST_F(DetailLinesTest, CreditsWithTheirLines) {
  order.Credits.Add({1500, {"Coupon", "", "spring", ""}});
  EXPECT_THAT(Plain(), ElementsAre("____Credits____", "     15.00", "     Coupon", "     spring"));
}

TEST_F(DetailLinesTest, APaymentByItsMethod) {
  order.Status = "PAID";
  order.Totals.Put(wototals::PaymentMethod, 1);
  order.Totals.Put(wototals::DatePaid, kTodayInFiles);
  order.Totals.Put(wototals::WorkorderTotal, 18728);
  EXPECT_THAT(Plain(), ElementsAre("____Payments/Charges____", "09/30/2003  Cash         187.28"));
  order.Totals.Put(wototals::DatePaid, 0);
  EXPECT_EQ(Plain()[1], "            Cash         187.28");
}

TEST_F(DetailLinesTest, AnOpenOneHasNoDateOfPaymentAndNoPaymentWithoutAMethod) {
  order.Status = "OPEN";
  order.Totals.Put(wototals::DatePaid, kTodayInFiles);
  order.Totals.Put(wototals::WorkorderTotal, 18728);
  EXPECT_THAT(Plain(), IsEmpty());
  order.Totals.Put(wototals::PaymentMethod, 2);
  EXPECT_THAT(Plain(), ElementsAre("____Payments/Charges____", "            Check        187.28"));
  order.Status = "CLOSED";
  order.Totals.Put(wototals::PaymentMethod, 0);
  EXPECT_EQ(Plain()[1], "09/30/2003               187.28");
}

TEST_F(DetailLinesTest, ASplitPaymentRowByRow) {
  order.Status = "OPEN";
  order.Totals.Put(wototals::PaymentMethod, 12);
  order.Totals.Put(wototals::SplitType(0), 1);
  order.Totals.Put(wototals::SplitAmount(0), 5000);
  order.Totals.Put(wototals::SplitDate(0), kTodayInFiles);
  order.Totals.Put(wototals::SplitType(9), 2);
  order.Totals.Put(wototals::SplitAmount(9), -28);
  EXPECT_THAT(Plain(), ElementsAre("____Payments/Charges____", "09/30/2003  Cash          50.00",
                                   "            Check         -0.28"));
}

TEST_F(DetailLinesTest, NotesWithTheirInnerBlankLines) {
  order.Notes[0] = {"first", "", "third", "", "", "", "", ""};
  order.Notes[2][0] = "Customer waits";
  EXPECT_THAT(Plain(), ElementsAre("____Notes____", "first", "", "third", "Customer waits"));
}

TEST_F(DetailLinesTest, TheUsedEntriesOfTheCheckList) {
  checks.items = {
      {true, "[Engine]", "", ""}, {true, "Oil", "changed", "3000"}, {false, "Belts", "", ""}, {true, "Hoses", "", ""}};
  EXPECT_THAT(Plain(), IsEmpty()) << "none was read";
  checks.ChecklistLoaded = true;
  EXPECT_THAT(Plain(), ElementsAre("____Checklist____", "______________", "[Engine]",
                                   "    Oil                            changed  3000", "    Hoses"));
}

TEST_F(DetailLinesTest, TheDiscountOfAllCategories) {
  order.Totals.Put(wototals::Subtotal[0], 10000);
  order.Totals.Put(wototals::Discount[0], 100000);
  order.Totals.Put(wototals::DollarDiscount, 250);
  EXPECT_THAT(Plain(), ElementsAre("____Discount____", "Totals include a discount of $12.50"));
  order.Totals.Put(wototals::Subtotal[0], 0);
  order.Totals.Put(wototals::DollarDiscount, 0);
  EXPECT_THAT(Plain(), ElementsAre("____Discount____", "Totals include a discount of $0.00")) << "a rate is enough";
  order.Totals.Put(wototals::DollarDiscount, -500);
  EXPECT_EQ(Plain()[1], "Totals include a discount of -$5.00");
}

TEST_F(DetailLinesTest, TheGroupsComeInTheirOrder) {
  order.Status = "CLOSED";
  order.Totals.Put(wototals::WorkorderTotal, 1);
  order.Totals.Put(wototals::DollarDiscount, 1);
  order.Notes[0][0] = "N";
  order.Credits.Add({1, {"C", "", "", ""}});
  order.Waste.Add({"W", "", 0, 1, "", 'N'});
  order.Sublets.Add({"S", "", 0, 1, "", 'N'});
  order.Labor.Add(Labor("L"));
  order.Parts.Add({"P", "", 1, 1, 1, 1});
  checks.items = {{true, "Oil", "", ""}};
  checks.ChecklistLoaded = true;
  std::vector<std::string> headings;
  const DetailLines lines = Composed();
  for (const std::string& line : lines.plain) {
    if (line.starts_with("____")) headings.push_back(line);
  }
  EXPECT_THAT(headings,
              ElementsAre("____Parts____", "____Labor____", "____Sublets____", "____Waste/Misc____", "____Credits____",
                          "____Payments/Charges____", "____Notes____", "____Checklist____", "____Discount____"));
  EXPECT_EQ(lines.plain.size(), lines.withCost.size());
}

}  // namespace
}  // namespace lantos::test
