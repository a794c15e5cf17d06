#include "payroll/Withholding.h"

#include <gtest/gtest.h>

#include <random>

#include "PayImage.h"
#include "support/ScratchDirectory.h"

namespace lantos::test {
namespace {

constexpr std::uint8_t kSingle = 0;
constexpr std::uint8_t kMarried = 1;
enum Period : std::uint8_t {
  kWeekly = 1,
  kTwoWeekly,
  kTwiceAMonth,
  kMonthly,
  kQuarterly,
  kHalfYearly,
  kYearly,
  kDaily
};

class WithholdingTest : public testing::Test {
 protected:
  WithholdingTest() { environment.files.SetDataDir(directory.DataDir()); }

  void PutOwn(int year, const std::string& text) const {
    std::filesystem::create_directory(directory / "withholding");
    directory.Put("withholding/" + std::to_string(year) + ".txt", text);
  }
  std::optional<std::int64_t> Federal(int year, std::int32_t gross, int exemptions, std::uint8_t period,
                                      std::uint8_t status) {
    return tables.Work("TX", PayOf({{year, 12, 15}, gross, exemptions, period, status})).federal;
  }
  std::string DataDir() const { return environment.files.DataDir(); }

  ScratchDirectory directory;
  StandingClock clock{LocalTime{37894, 0}};
  UserSettings settings{directory / "settings"};
  Environment environment{clock, settings};
  WithholdingTables tables{environment};
};

// Circular E works this example: 600.00 a week, single, two allowances. Its table of a week for 2006, which would give
// 56.26, isn't installed.
TEST_F(WithholdingTest, ThePublishedExampleOfEachYear) {
  EXPECT_EQ(Federal(2005, 60000, 2, kWeekly, kSingle), 5704);
  EXPECT_EQ(Federal(2006, 60000, 2, kWeekly, kSingle), 5625) << "31200 - 6600; 2925.00 / 52";
}

// By hand: the wage less the allowances, the line of the table that it is over, the sum and the share.
TEST_F(WithholdingTest, WeeksByTheTablesOfAWeek) {
  EXPECT_EQ(Federal(2005, 5100, 0, kWeekly, kSingle), 0) << "not over 51.00";
  EXPECT_EQ(Federal(2005, 16000, 0, kWeekly, kMarried), 60) << "10% of 6.00";
  EXPECT_EQ(Federal(2005, 44000, 1, kWeekly, kMarried), 2245) << "10% of 224.46";
  EXPECT_EQ(Federal(2005, 123456, 1, kWeekly, kSingle), 21816) << "76.40 and 25% of 567.02";
  EXPECT_EQ(Federal(2005, 150000, 0, kWeekly, kSingle), 30467) << "260.15 and 28% of 159.00";
  EXPECT_EQ(Federal(2005, 650000, 1, kWeekly, kSingle), 186577) << "1821.86 and 35% of 125.46";
  EXPECT_EQ(Federal(2005, 250000, 3, kWeekly, kMarried), 41440) << "153.80 and 25% of 1042.38, up to 2322";
  EXPECT_EQ(Federal(2005, 400000, 2, kWeekly, kMarried), 86297) << "786.77 and 33% of 230.92";
  EXPECT_EQ(Federal(2005, 700000, 0, kWeekly, kMarried), 190541) << "1698.56 and 35% of 591.00";
}

// A public employer printed the same table in another form: a share of the taxable wage, less an amount.
TEST_F(WithholdingTest, TwoWeeksByTheOtherFormOfTheirTable) {
  EXPECT_EQ(Federal(2006, 35000, 0, kTwoWeekly, kSingle), 2480) << "10% less 10.20";
  EXPECT_EQ(Federal(2006, 100000, 1, kTwoWeekly, kSingle), 10151) << "15% of 873.08 less 29.45";
  EXPECT_EQ(Federal(2006, 234567, 2, kTwoWeekly, kSingle), 36951) << "25% of 2091.83 less 153.45";
  EXPECT_EQ(Federal(2006, 500000, 0, kTwoWeekly, kSingle), 116204) << "28% less 237.96";
  EXPECT_EQ(Federal(2006, 700000, 0, kTwoWeekly, kSingle), 177079) << "33% less 539.21";
  EXPECT_EQ(Federal(2006, 1500000, 0, kTwoWeekly, kSingle), 445049) << "35% less 799.51";
  EXPECT_EQ(Federal(2006, 80000, 1, kTwoWeekly, kMarried), 3651) << "10% of 673.08 less 30.80";
  EXPECT_EQ(Federal(2006, 160000, 3, kTwoWeekly, kMarried), 10804) << "15% of 1219.24 less 74.85";
  EXPECT_EQ(Federal(2006, 450000, 2, kTwoWeekly, kMarried), 72499) << "25% of 4246.16 less 336.55";
  EXPECT_EQ(Federal(2006, 600000, 0, kTwoWeekly, kMarried), 119702) << "28% less 482.98";
  EXPECT_EQ(Federal(2006, 1000000, 0, kTwoWeekly, kMarried), 244117) << "33% less 858.83";
  EXPECT_EQ(Federal(2006, 1400000, 0, kTwoWeekly, kMarried), 377691) << "35% less 1123.09";
}

// By hand: a year of such wages, its tax by the table of a year, and the period's share.
TEST_F(WithholdingTest, OtherPeriodsByAYearOfThem) {
  EXPECT_EQ(Federal(2003, 100000, 2, kTwoWeekly, kSingle), 8538) << "26000 - 6200; 2220.00 / 26";
  EXPECT_EQ(Federal(2003, 160000, 3, kTwoWeekly, kMarried), 11269) << "41600 - 9300; 2930.00 / 26";
  EXPECT_EQ(Federal(2003, 60000, 1, kWeekly, kSingle), 6663) << "31200 - 3100; 3465.00 / 52";
  EXPECT_EQ(Federal(2004, 60000, 1, kWeekly, kSingle), 6663) << "the tables of June 2003 go on through 2004";
  EXPECT_EQ(Federal(2004, 350000, 4, kMonthly, kMarried), 21042) << "42000 - 12400; 2525.00 / 12";
  EXPECT_EQ(Federal(2004, 200000, 0, kTwiceAMonth, kSingle), 34042) << "48000; 8170.00 / 24";
  EXPECT_EQ(Federal(2004, 1200000, 2, kQuarterly, kMarried), 108875) << "48000 - 6200; 4355.00 / 4";
  EXPECT_EQ(Federal(2004, 3000000, 1, kHalfYearly, kSingle), 519750) << "60000 - 3100; 10395.00 / 2";
  EXPECT_EQ(Federal(2006, 8500000, 3, kYearly, kMarried), 1002600) << "85000 - 9900; 8261 and 25% of 7060";
  EXPECT_EQ(Federal(2006, 40000000, 0, kYearly, kSingle), 11921300) << "97653 and 35% of 61600";
  EXPECT_EQ(Federal(2006, 15000, 1, kDaily, kSingle), 1898) << "39000 - 3300; 4936.00 / 260";
  EXPECT_EQ(Federal(2006, 123456, 1, kWeekly, kSingle), 21606) << "64197.12 - 3300; 11235.28 / 52";
  EXPECT_EQ(Federal(2003, 35000, 5, kWeekly, kMarried), 0) << "18200 - 15500, not over 8000";
}

TEST_F(WithholdingTest, WhatCouldNotBeComparedIsMissing) {
  for (const Period period : {kTwoWeekly, kTwiceAMonth, kMonthly, kQuarterly, kHalfYearly, kYearly, kDaily}) {
    EXPECT_FALSE(Federal(2005, 200000, 1, period, kMarried)) << period;
  }
  EXPECT_TRUE(tables.Missing().starts_with("No withholding table: federal 2005 (two-weekly, married); federal 2005 ("));
  EXPECT_TRUE(Federal(2005, 200000, 1, kWeekly, kMarried));
}

TEST_F(WithholdingTest, AFlatRateIsOfTheWholeWage) {
  EXPECT_EQ(tables.Work("PA", PayOf({{2003, 12, 31}, 100000})).state, 2800);
  EXPECT_EQ(tables.Work("PA", PayOf({{2004, 1, 1}, 100000})).state, 3070);
  EXPECT_EQ(tables.Work("PA", PayOf({{2006, 6, 1}, 12345, 4, kMonthly, kMarried})).state, 379) << "378.99";
  EXPECT_EQ(tables.Work("PA", PayOf({{2006, 6, 1}, 12345})).local, std::nullopt) << "each town has its own";
}

TEST_F(WithholdingTest, NineStatesTakeNothing) {
  for (const char* state : {"AK", "FL", "NV", "NH", "SD", "TN", "TX", "WA", "WY"}) {
    const Withholding result = tables.Work(state, PayOf({{2005, 1, 1}, 100000}));
    EXPECT_EQ(result.state, 0) << state;
    EXPECT_EQ(result.local, 0) << state;
  }
}

TEST_F(WithholdingTest, TheNetIsTheGrossLessAllDeductions) {
  PayRecord pay = PayOf({{2006, 3, 31}, 60000, 2});
  pay.Put(payrecord::FICA, 3720);
  pay.Put(payrecord::Medicare, 870);
  pay.Put(payrecord::FUTA, 480);
  pay.Put(payrecord::SUTA, 1620);
  pay.Put(payrecord::Insurance, 1500);
  pay.Put(payrecord::Savings, 2500);
  pay.Put(payrecord::Uniform, 450);
  EXPECT_EQ(tables.Work("TX", pay).net, 60000 - 5625 - 3720 - 870 - 1500 - 2500 - 450);
  EXPECT_EQ(tables.Missing(), "");
}

TEST_F(WithholdingTest, TheStateIsReadAsItLiesInTheRecord) {
  const PayRecord pay = PayOf({{2006, 3, 31}, 60000});
  EXPECT_EQ(tables.Work(std::string_view("tx\0", 3), pay).state, 0);
  EXPECT_EQ(tables.Work(" TX ", pay).state, 0);
}

TEST_F(WithholdingTest, WhatHasNoTableIsEmptyAndNamed) {
  const Withholding result = tables.Work("OH", PayOf({{2006, 3, 31}, 60000}));
  EXPECT_TRUE(result.federal);
  EXPECT_FALSE(result.state);
  EXPECT_FALSE(result.local);
  EXPECT_FALSE(result.net);
  tables.Work("OH", PayOf({{2006, 4, 7}, 60000}));
  EXPECT_FALSE(tables.Work("OH", PayOf({{1999, 4, 7}, 60000})).federal);
  EXPECT_EQ(tables.Missing(),
            "No withholding table: state OH 1999, 2006; local OH 1999, 2006; federal 1999. One goes into " + DataDir() +
                "withholding\\<year>.txt.");
}

TEST_F(WithholdingTest, YearsThatFollowOneAnotherAreNamedByTheirEnds) {
  for (const int year : {2010, 2009, 2006, 1998, 1997, 1996, 1994}) tables.Work("OH", PayOf({{year, 6, 6}, 60000}));
  EXPECT_EQ(
      tables.Missing(),
      "No withholding table: federal 1994, 1996 to 1998, 2009 to 2010; state OH 1994, 1996 to 1998, 2006, 2009 to "
      "2010; local OH 1994, 1996 to 1998, 2006, 2009 to 2010. One goes into " +
          DataDir() + "withholding\\<year>.txt.");
}

TEST_F(WithholdingTest, DaysThatTheYearsTablesLeaveOutAreMissing) {
  EXPECT_FALSE(tables.Work("TX", PayOf({{2003, 6, 30}, 60000})).federal) << "two sets of tables were in use";
  EXPECT_TRUE(tables.Work("TX", PayOf({{2003, 7, 1}, 60000})).federal);
}

TEST_F(WithholdingTest, AnUnknownPeriodOrStatusHasNoTable) {
  EXPECT_FALSE(Federal(2006, 60000, 0, 0, kSingle));
  EXPECT_FALSE(Federal(2006, 60000, 0, 9, kSingle));
  EXPECT_FALSE(Federal(2006, 60000, 0, kMonthly, 2));
  EXPECT_EQ(tables.Missing(),
            "No withholding table: federal 2006 (no one period, single); federal 2006 (monthly, no "
            "known status). One goes into " +
                DataDir() + "withholding\\<year>.txt.");
}

TEST_F(WithholdingTest, KindsOfPayWithDifferentPeriodsHaveNoTable) {
  PayRecord pay = PayOf({{2006, 3, 31}, 60000});
  pay.Put(payrecord::CommissionPeriod, std::uint8_t{4});
  EXPECT_FALSE(tables.Work("TX", pay).federal);
  pay.Put(payrecord::CommissionPeriod, std::uint8_t{1});
  EXPECT_TRUE(tables.Work("TX", pay).federal);
}

TEST_F(WithholdingTest, ARecordWithoutADateHasNoTable) {
  PayRecord pay = PayOf({{2006, 3, 31}, 60000});
  for (const FileDate date : {0, -5, 2147483647}) {
    pay.Put(payrecord::PayrollDate, date);
    EXPECT_FALSE(tables.Work("TX", pay).federal);
  }
  EXPECT_TRUE(tables.Missing().starts_with("No withholding table: a record without a date."));
}

TEST_F(WithholdingTest, TheShopsOwnFileGoesBeforeOurs) {
  PutOwn(2006, "state TX\r\n source the mayor\r\n rate 1%\r\n\r\nlocal OH\r\nsource the town\r\nrate 2.25%\r\n");
  const PayRecord pay = PayOf({{2006, 3, 31}, 60000});
  EXPECT_EQ(tables.Work("TX", pay).state, 600);
  EXPECT_EQ(tables.Work("OH", pay).local, 1350);
  EXPECT_TRUE(tables.Work("TX", pay).federal) << "what it doesn't have is ours";
}

TEST_F(WithholdingTest, AFileThatIsNotUnderstoodGivesNoFigureAtAll) {
  PutOwn(2006, "state TX\nsource the mayor\nrate one\n");
  const Withholding result = tables.Work("TX", PayOf({{2006, 3, 31}, 60000}));
  EXPECT_FALSE(result.federal);
  EXPECT_FALSE(result.net);
  EXPECT_EQ(tables.Missing(),
            "Withholding can't be worked out: withholding\\2006.txt, line 3: \"one\" is no percentage.");
  EXPECT_TRUE(tables.Work("TX", PayOf({{2005, 3, 31}, 60000})).federal) << "the other years can";
}

TEST_F(WithholdingTest, AFileThatIsHeldGivesNoFigureEither) {
  PutOwn(2006, "state TX\nsource the mayor\nnone\n");
  const SharedFile held(directory / "withholding/2006.txt", Access::ReadWrite, Deny::All);
  EXPECT_FALSE(tables.Work("TX", PayOf({{2006, 3, 31}, 60000})).federal);
  EXPECT_EQ(tables.Missing(), "Withholding can't be worked out: withholding\\2006.txt: Error 70: Permission denied");
}

TEST_F(WithholdingTest, AllowancesOfAFlatRate) {
  PutOwn(2006, "state OH\nsource x\nrate 3%\nallowance yearly 2000\n");
  EXPECT_EQ(tables.Work("OH", PayOf({{2006, 3, 31}, 100000, 2, kTwoWeekly})).state, 2538)
      << "26000 - 4000; 660.00 / 26";
  EXPECT_EQ(tables.Work("OH", PayOf({{2006, 3, 31}, 1000, 2, kTwoWeekly})).state, 0);
  EXPECT_EQ(tables.Work("OH", PayOf({{2006, 3, 31}, 100000, 2, 0})).state, std::nullopt) << "which part of a year?";
}

TEST_F(WithholdingTest, NothingIsWithheldOfNoPay) {
  EXPECT_EQ(Federal(2006, 0, 0, kWeekly, kSingle), 0);
  EXPECT_EQ(Federal(2006, -60000, 0, kWeekly, kSingle), 0);
  EXPECT_EQ(tables.Work("PA", PayOf({{2006, 3, 31}, -60000})).state, 0);
}

// Whatever the bytes of a record are.
TEST_F(WithholdingTest, OfAnyRecordTheNetIsTheGrossLessAllDeductions) {
  constexpr int kOnlyWeeks = 2;  // 2005, whose other tables aren't installed
  std::mt19937 random(1);
  for (int round = 0; round < 5000; ++round) {
    PayRecord pay;
    for (std::byte& byte : pay.Bytes()) byte = static_cast<std::byte>(random() & 0xFF);
    pay.Put(payrecord::PayrollDate, ToFileDate(ToSerial({2003 + round % 4, 10, 1})));
    for (const ByteField field : {payrecord::WagePeriod, payrecord::SalaryPeriod, payrecord::CommissionPeriod}) {
      pay.Put(field, static_cast<std::uint8_t>(round % 9));
    }
    pay.Put(payrecord::MaritalStatus, static_cast<std::uint8_t>(round % 2));
    const PayRecord before = pay;
    const Withholding result = tables.Work("WA", pay);
    EXPECT_EQ(pay, before);
    const int period = round % 9;
    const bool isTold = round % 4 == kOnlyWeeks ? period == kWeekly : period != 0;
    ASSERT_EQ(result.net.has_value(), isTold);
    if (!result.net) continue;
    std::int64_t deducted = *result.federal + *result.state + *result.local;
    for (const std::size_t offset : {17U, 21U, 274U, 279U, 287U}) deducted += pay.Get(LongField{offset});
    ASSERT_EQ(*result.net + deducted, pay.Get(LongField{12}));
    ASSERT_GE(*result.federal, 0);
  }
}

TEST_F(WithholdingTest, LookingWritesNothing) {
  PutOwn(2006, "state TX\nsource the mayor\nnone\n");
  const std::string own = directory.Content("withholding/2006.txt");
  const std::size_t files = directory.Count();
  tables.Work("TX", PayOf({{2006, 3, 31}, 60000}));
  tables.Work("TX", PayOf({{2007, 3, 31}, 60000}));
  EXPECT_EQ(directory.Content("withholding/2006.txt"), own);
  EXPECT_EQ(directory.Count(), files);
}

// The sum of each line is the tax up to it, and two weeks' amounts are a year's by 26, to the dollar.
TEST(InstalledWithholding, EveryTableAddsUp) {
  const std::filesystem::path folder = InstalledFolder(kWithholdingFolder);
  int tables = 0;
  for (const int year : {2003, 2004, 2005, 2006}) {
    std::ifstream in(folder / (std::to_string(year) + ".txt"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    for (const WithholdingRule& rule : ReadWithholdingRules(lines, year)) {
      EXPECT_FALSE(rule.source.empty());
      for (const auto& [key, table] : rule.tables) {
        ++tables;
        EXPECT_EQ(table.front().tax, 0);
        for (std::size_t i = 1; i < table.size(); ++i) {
          EXPECT_EQ(table[i].tax,
                    table[i - 1].tax + (table[i].over - table[i - 1].over) * table[i - 1].rate / 1'000'000);
        }
        if (key.first != kTwoWeekly) continue;
        const auto& aYear = rule.tables.at({kYearly, key.second});
        ASSERT_EQ(table.size(), aYear.size());
        for (std::size_t i = 0; i < table.size(); ++i) {
          EXPECT_EQ(table[i].over, (aYear[i].over + 1300) / 2600 * 100);
          EXPECT_EQ(table[i].rate, aYear[i].rate);
        }
      }
    }
  }
  EXPECT_EQ(tables, 10);
}

}  // namespace
}  // namespace lantos::test
