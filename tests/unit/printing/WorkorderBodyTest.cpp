#include "printing/WorkorderBody.h"

#include "printing/WorkorderBench.h"

namespace lantos {
namespace {

using test::Rows;
using test::WorkorderOnPaper;

const std::vector<std::string> kBlank = {" ", "", "", "", "", ""};
const std::vector<std::string> kPayments = {"____Payments/Charges____", "", "", "Date   ", "Type", "Amount"};

TEST_F(WorkorderOnPaper, AnOpenOneWithoutLinesOrPaymentsHasItsBalanceAlone) {
  SetTotal(10750);
  EXPECT_EQ(Lines(), (Rows{Balance("107.50")}));
}

TEST_F(WorkorderOnPaper, PartsHaveTheirNumberPricesAndWhatTheyComeTo) {
  order.Parts.Add({"PAD-9", "BRAKE PAD SET", 2, 1500, 4250, 4999});
  order.Parts.Add({"free", "GONE", 1, 1, 1, 1});
  order.Parts.Add({"RETURN", "CORE", -1, 0, 999, 0});
  order.Parts.Add({" done ", "A MARK OF ITS OWN", 1, 1, 1, 1});
  order.Parts.Add({"BEHIND", "IT", 1, 1, 1, 1});
  EXPECT_EQ(LinesAheadOfBalance(), (Rows{{"____Parts____", "", "", "Price", "List", "Ext."},
                                         {"BRAKE PAD SET", "PAD-9", "2", "42.50", "49.99", "85.00"},
                                         {"CORE", "RETURN", "-1", "9.99", "0.00", "-9.99"},
                                         kBlank}));
}

TEST_F(WorkorderOnPaper, WhatPartsComeToMayBeMoreThanAPriceHolds) {
  order.Parts.Add({"GOLD", "", 32767, 0, 2147483647, 0});
  EXPECT_EQ(LinesAheadOfBalance()[1][5], "703665966612.49");
}

TEST_F(WorkorderOnPaper, LaborHasARowForEachLineWithText) {
  WoLaborLine labor = Labor({"REPLACE PADS", "", "turn rotors", "  ", "", "", "", "road test"});
  labor.Mechanic = 12;
  labor.Hours = 150;
  labor.Rate = 6500;
  labor.Total = 9750;
  order.Labor.Add(labor);
  order.Labor.Add(Labor({"free", "gone"}));
  order.Labor.Add(Labor({"", "only a second line"}));
  EXPECT_EQ(LinesAheadOfBalance(), (Rows{{"____Labor____", "", "Hours", "Rate", "", "Ext."},
                                         {"REPLACE PADS", "000012", "1.50", "65.00", "", "97.50"},
                                         TextRow("turn rotors"),
                                         TextRow("road test"),
                                         {"", "000000", "0.00", "0.00", "", "0.00"},
                                         TextRow("only a second line"),
                                         kBlank}));
}

struct Due {
  std::int32_t days, miles;
  FileDate date;
  std::string followup;        // behind "Followup "
  std::string recommendation;  // behind "Return vehicle "
};

class DueBack : public WorkorderOnPaper, public testing::WithParamInterface<Due> {};

TEST_P(DueBack, ReadsAsFarAsItIsKnown) {
  WoLaborLine labor = Labor({"OIL CHANGE"});
  labor.FollowupDays = GetParam().days;
  labor.FollowupMiles = GetParam().miles;
  labor.FollowupDate = GetParam().date;
  order.Labor.Add(labor);
  const Rows lines = Lines();
  if (GetParam().followup.empty()) {
    ASSERT_EQ(lines.size(), 4U);
    return;
  }
  ASSERT_EQ(lines.size(), 9U);
  EXPECT_EQ(lines[2], TextRow("Followup " + GetParam().followup));
  EXPECT_EQ(lines[8], TextRow("Return vehicle " + GetParam().recommendation + " for OIL CHANGE"));
}

const FileDate kDueDate = ToFileDate(ToSerial({2003, 12, 29}));
INSTANTIATE_TEST_SUITE_P(
    ByDaysMilesOrDate, DueBack,
    testing::Values(Due{90, 0, kDueDate, "in 90 days on 12/29/2003", "in 90 days on or about 12/29/2003"},
                    Due{0, 3000, kDueDate, "in 3000 miles on 12/29/2003", "in 3000 miles on or about 12/29/2003"},
                    Due{90, 3000, kDueDate, "in 90 days on 12/29/2003", "in 90 days on or about 12/29/2003"},
                    Due{0, 0, kDueDate, "on 12/29/2003", "on or about 12/29/2003"},
                    Due{90, 0, 0, "in 90 days", "in 90 days"}, Due{0, 3000, -5, "in 3000 miles", "in 3000 miles"},
                    Due{0, 0, 37000, "on 04/19/2001", "on or about 04/19/2001"}, Due{0, 0, 0, "", ""},
                    Due{-1, -1, -1, "", ""}));

TEST_F(WorkorderOnPaper, SubletsAndWasteHaveTheirVendorAndTheLinesWithText) {
  WoExtraLine sublet;
  sublet.Vendor = "Ace Towing";
  sublet.Invoice = "A-1";
  sublet.Cost = 4000;
  sublet.Price = 5525;
  sublet.Description = "from Main Street\t\t to the shop";
  order.Sublets.Add(sublet);
  sublet.Vendor = std::string(kSurchargeVendor);
  sublet.Description = "";
  order.Sublets.Add(sublet);
  WoExtraLine waste;
  waste.Vendor = "Disposal";
  waste.Price = -100;
  waste.Description = "oil";
  order.Waste.Add(waste);
  EXPECT_EQ(LinesAheadOfBalance(), (Rows{{"____Sublets____", "", "", "", "", "Amount"},
                                         {"Ace Towing", "", "", "", "", "55.25"},
                                         TextRow("from Main Street"),
                                         TextRow(" to the shop"),
                                         {"SURCHARGE", "", "", "", "", "55.25"},
                                         kBlank,
                                         {"____Waste/Misc____", "", "", "", "", "Amount"},
                                         {"Disposal", "", "", "", "", "-1.00"},
                                         TextRow("oil"),
                                         kBlank}));
}

TEST_F(WorkorderOnPaper, CreditsHaveTheirAmountBesideTheFirstLineWithText) {
  order.Credits.Add({2500, {"core returned", "", "alternator"}});
  order.Credits.Add({100, {"", "second"}});
  order.Credits.Add({7, {}});
  EXPECT_EQ(LinesAheadOfBalance(), (Rows{{"____Credits____", "", "", "", "", "Amount"},
                                         {"core returned", "", "", "", "", "25.00"},
                                         TextRow("alternator"),
                                         {"second", "", "", "", "", "1.00"},
                                         {"", "", "", "", "", "0.07"},
                                         kBlank}));
}

TEST_F(WorkorderOnPaper, SplitsWithAnAmountArePaymentsWhateverTheStatus) {
  SetTotal(10000);
  SetMethod("Split");
  AddSplit(0, "Cash", 2500, Today() - 1);
  AddSplit(1, "Visa", 0, Today());
  AddSplit(9, "Check", 1250, 0);
  EXPECT_EQ(
      Lines(),
      (Rows{
          kPayments, {"", "", "", "09/29/03", "Cash", "25.00"}, {"", "", "", "", "Check", "12.50"}, Balance("62.50")}));
}

TEST_F(WorkorderOnPaper, ASplitWithoutAmountsIsNoPayment) {
  SetTotal(10000);
  SetMethod("Split");
  EXPECT_EQ(Lines(), (Rows{Balance("100.00")}));
}

TEST_F(WorkorderOnPaper, AMethodThatTheShopHasNotIsBlank) {
  SetTotal(10000);
  SetMethod("Split");
  AddSplit(0, "Cash", 500, Today());
  order.Totals.Put(wototals::SplitType(0), std::uint8_t{200});
  EXPECT_EQ(Lines()[1], (std::vector<std::string>{"", "", "", "09/30/03", "", "5.00"}));
}

TEST_F(WorkorderOnPaper, WhatWasPaidInOnePieceIsOnePaymentAndLeavesNothing) {
  SetTotal(10000);
  SetMethod("Visa");
  order.Status = "PAID";
  order.Totals.Put(wototals::DateClosed, ToFileDate(Today() - 2));
  order.Totals.Put(wototals::DatePaid, ToFileDate(Today() - 1));
  EXPECT_EQ(Lines(), (Rows{kPayments, {"", "", "", "09/29/03", "Visa", "100.00"}, Balance("0.00")}));
}

TEST_F(WorkorderOnPaper, WhatSplitsOfAPaidOneLeaveIsItsBalance) {
  SetTotal(10000);
  SetMethod("Split");
  order.Status = "PAID";
  AddSplit(0, "Cash", 9900, Today());
  EXPECT_EQ(Lines().back(), Balance("1.00"));
}

TEST_F(WorkorderOnPaper, WhatIsOnAccountIsStillToBePaid) {
  SetTotal(10000);
  SetMethod("Account");
  order.Status = "ON ACCT";
  order.Totals.Put(wototals::DateClosed, ToFileDate(Today() - 2));
  EXPECT_EQ(Lines(), (Rows{kPayments, {"", "", "", "09/28/03", "Account", "100.00"}, Balance("100.00")}));
  order.Totals.Put(wototals::DateClosed, 0);
  EXPECT_EQ(Lines()[1][3], "09/30/03");
  order.Totals.Put(wototals::DateOpen, 0);
  EXPECT_EQ(Lines()[1][3], "");
}

TEST_F(WorkorderOnPaper, NotesAreTheirLinesWithText) {
  order.Notes[0] = {"first", "", "third"};
  order.Notes[29][7] = "the very last";
  EXPECT_EQ(Lines(), (Rows{Balance("0.00"), TextRow("____Notes____"), TextRow("first"), TextRow("third"),
                           TextRow("the very last")}));
}

TEST_F(WorkorderOnPaper, ServiceRecommendationsStandInAFrame) {
  WoLaborLine oil = Labor({"OIL CHANGE", "", "with filter"});
  oil.FollowupMiles = 3000;
  order.Labor.Add(Labor({"NO FOLLOWUP"}));
  order.Labor.Add(oil);
  WoLaborLine nameless = Labor({""});
  nameless.FollowupDays = 30;
  order.Labor.Add(nameless);
  const ui::Report report = Make();
  ASSERT_EQ(report.frames.size(), 1U);
  const auto first = report.lines.begin() + static_cast<std::ptrdiff_t>(report.frames[0].first);
  EXPECT_EQ(Rows(first, report.lines.end()),
            (Rows{TextRow("  Service                   Due Back"), TextRow("________________________  ______________"),
                  TextRow("____Service Recommendations____"), TextRow("Return vehicle in 3000 miles for OIL CHANGE"),
                  TextRow("     with filter"), TextRow("Return vehicle in 30 days for")}));
  EXPECT_EQ(report.frames[0].count, 6U);
}

TEST_F(WorkorderOnPaper, TheDiscountIsAllThatWasTakenOff) {
  SetTotal(100);
  order.Totals.Put(wototals::Subtotal[0], 10001);
  order.Totals.Put(wototals::Discount[0], 100000);  // a tenth
  order.Totals.Put(wototals::Subtotal[4], 2000);    // sublets that aren't taxed
  order.Totals.Put(wototals::Discount[2], 500000);
  order.Totals.Put(wototals::DollarDiscount, 250);
  EXPECT_EQ(Lines().back(), TextRow("Totals include a discount of $22.50"));
  order.Totals.Put(wototals::DollarDiscount, -2500);
  EXPECT_EQ(Lines().back(), TextRow("Totals include a discount of -$5.00"));
  order.Totals.Put(wototals::DollarDiscount, -2000);
  EXPECT_EQ(Lines().back(), Balance("1.00"));
}

}  // namespace
}  // namespace lantos
