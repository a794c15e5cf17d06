#include "payroll/PayRows.h"

#include <gtest/gtest.h>

#include "PayImage.h"

namespace lantos::test {
namespace {

PayRow RowOn(const CivilDate& date, std::int32_t gross, bool isMarked = false) {
  PayRow row = MakePayRow(PayOf({date, gross}), {100, 0, 0, gross - 100}, {});
  if (isMarked) row[PayColumn::Mark] = "X";
  return row;
}

TEST(PayRows, ARowReadsAsTheListHasIt) {
  PayRecord pay = PayOf({{2003, 9, 5}, 123456});
  pay.Put(payrecord::Hours, 4025);
  pay.Put(payrecord::FICA, 7654);
  pay.Put(payrecord::Medicare, 1790);
  pay.Put(payrecord::FUTA, 98);
  pay.Put(payrecord::SUTA, 333);
  pay.Put(payrecord::Insurance, 1500);
  pay.Put(payrecord::Uniform, 450);
  pay.Put(payrecord::Savings, -5);
  const PayRow row = MakePayRow(pay, {10000, 2000, 300, 99999}, {1000, 200, 30});
  const std::array<std::string, kPayColumnCount> expected = {
      "",      "09/05/2003", "40.25", "1234.56", "76.54", "17.90", "0.98", "3.33",  "100.00",
      "20.00", "3.00",       "10.00", "2.00",    "0.30",  "15.00", "4.50", "-0.05", "987.69"};
  EXPECT_EQ(row.cells, expected);
  EXPECT_EQ(row.sortDate, "2003/09/05");
}

TEST(PayRows, WhatIsNotKnownStaysEmpty) {
  const PayRow row = MakePayRow(PayOf({{2003, 9, 5}, 100}), {50, std::nullopt, std::nullopt, std::nullopt}, {1, 2, 3});
  EXPECT_EQ(row[PayColumn::Federal], "0.50");
  EXPECT_EQ(row[PayColumn::State], "");
  EXPECT_EQ(row[PayColumn::Local], "");
  EXPECT_EQ(row[PayColumn::AddlFed], "0.01");
  EXPECT_EQ(row[PayColumn::Net], "");
}

TEST(PayRows, NoDateSortsBehindAllOthers) {
  PayRecord pay;
  const PayRow row = MakePayRow(pay, {}, {});
  EXPECT_EQ(row.sortDate, "0000/00/00");
  EXPECT_EQ(row[PayColumn::Date], "");
  pay.Put(payrecord::PayrollDate, 37869);
  EXPECT_EQ(MakePayRow(pay, {}, {})[PayColumn::Date], "09/05/2003") << "a bare day";
}

TEST(PayRows, WithoutADateThereIsNoYearToSumUp) {
  PayRecord pay;
  pay.Put(payrecord::Gross, 100);
  const std::vector<PayRow> rows = {MakePayRow(pay, {}, {}), RowOn({2004, 1, 30}, 50)};
  EXPECT_EQ(YearToDate(rows, rows[0], PayColumn::Gross), std::nullopt);
  EXPECT_EQ(YearToDate(rows, rows[1], PayColumn::Gross), 50);
}

TEST(PayRows, TheYearGoesFromItsFirstDayToTheRowsOwn) {
  const std::vector<PayRow> rows = {RowOn({2004, 2, 6}, 3), RowOn({2004, 1, 30}, 50), RowOn({2004, 1, 16}, 700),
                                    RowOn({2004, 1, 1}, 9000), RowOn({2003, 12, 31}, 100000)};
  EXPECT_EQ(YearToDate(rows, rows[1], PayColumn::Gross), 9750);
  EXPECT_EQ(YearToDate(rows, rows[0], PayColumn::Gross), 9753);
  EXPECT_EQ(YearToDate(rows, rows[4], PayColumn::Gross), 100000);
  EXPECT_EQ(YearToDate(rows, rows[1], PayColumn::Federal), 300);
}

TEST(PayRows, RowsOfTheSameDayCountAndMarkedOnesDoNot) {
  const std::vector<PayRow> rows = {RowOn({2004, 1, 30}, 50), RowOn({2004, 1, 30}, 700),
                                    RowOn({2004, 1, 16}, 9000, true)};
  EXPECT_EQ(YearToDate(rows, rows[0], PayColumn::Gross), 750);
}

TEST(PayRows, AYearWithAnUnknownAmountHasNoSum) {
  std::vector<PayRow> rows = {RowOn({2004, 1, 30}, 50), RowOn({2004, 1, 16}, 700)};
  rows[1][PayColumn::Federal] = "";
  EXPECT_EQ(YearToDate(rows, rows[0], PayColumn::Federal), std::nullopt);
  EXPECT_EQ(YearToDate(rows, rows[0], PayColumn::Gross), 750);
}

}  // namespace
}  // namespace lantos::test
