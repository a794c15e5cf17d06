#include "workorders/RunningTotals.h"

#include <gtest/gtest.h>

#include <limits>

namespace lantos {
namespace {

using enum WoCategory;

// Rates of a work order of its own: parts 5.75% tax, labor none, sublets 10%, waste 2.5%; discounts likewise by kind.
Workorder WithRates() {
  Workorder workorder;
  ClearWorkorder(workorder);
  constexpr Millionths kTax[] = {57500, 0, 100000, 25000};
  constexpr Millionths kDiscount[] = {100000, 50000, 200000, 0};
  for (std::size_t i = 0; i < 4; ++i) {
    workorder.Totals.Put(wototals::TaxRate[i], kTax[i]);
    workorder.Totals.Put(wototals::Discount[i], kDiscount[i]);
  }
  return workorder;
}

struct Worked {
  WoCategory category;
  Cents before, after;
  Cents subtotal, tax, total;
};
void PrintTo(const Worked& worked, std::ostream* out) {
  *out << "category " << static_cast<int>(worked.category) << ", " << worked.before << " to " << worked.after;
}

class AddWoAmountTable : public testing::TestWithParam<Worked> {};

TEST_P(AddWoAmountTable, OneLineChanged) {
  const Worked& worked = GetParam();
  Workorder workorder = WithRates();
  AddWoAmount(workorder, worked.category, worked.before, worked.after);
  const WoTotals& totals = workorder.Totals;
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(totals.Get(wototals::Subtotal[i]), i == static_cast<std::size_t>(worked.category) ? worked.subtotal : 0);
  }
  EXPECT_EQ(totals.Get(wototals::WorkorderTax), worked.tax);
  EXPECT_EQ(totals.Get(wototals::WorkorderTotal), worked.total);
  EXPECT_EQ(workorder.AmountDue, worked.total);
}

INSTANTIATE_TEST_SUITE_P(
    Worked, AddWoAmountTable,
    testing::Values(Worked{Parts, 0, 10000, 10000, 575, 10000 + 575 - 1000},
                    Worked{Parts, 10000, 0, -10000, -575, -10000 - 575 + 1000},
                    Worked{Parts, 10000, 12000, 2000, 115, 2000 + 115 - 200},
                    // 5.75% of 200 is 11.5: to even, up. Of 600 it is 34.5: to even, down.
                    Worked{Parts, 0, 200, 200, 12, 200 + 12 - 20}, Worked{Parts, 0, 600, 600, 34, 600 + 34 - 60},
                    // 10% of 25 is 2.5, of 35 is 3.5; and the tax 1.4375 and 2.0125.
                    Worked{Parts, 0, 25, 25, 1, 25 + 1 - 2}, Worked{Parts, 0, 35, 35, 2, 35 + 2 - 4},
                    // Old and new are rounded each for itself: 12 - 1, not 5.75% of the difference.
                    Worked{Parts, 25, 200, 175, 11, 175 + 11 - (20 - 2)},
                    Worked{Parts, 0, -200, -200, -12, -200 - 12 + 20}, Worked{Labor, 0, 6500, 6500, 0, 6500 - 325},
                    Worked{Sublet, 0, 245, 245, 24, 245 + 24 - 49}, Worked{Waste, 0, 100, 100, 2, 102},
                    Worked{Waste, 0, 300, 300, 8, 308}, Worked{NonTaxSublet, 0, 1000, 1000, 0, 800},
                    Worked{NonTaxSublet, 1000, 500, -500, 0, -400}, Worked{NonTaxWaste, 0, 1000, 1000, 0, 1000},
                    Worked{Credit, 0, 1500, 1500, 0, -1500}, Worked{Credit, 1500, 0, -1500, 0, 1500},
                    Worked{Credit, 1500, 1000, -500, 0, 500}, Worked{Fuel, 0, 4200, 4200, 0, 4200},
                    Worked{Parts, 0, 0, 0, 0, 0}));

TEST(AddWoAmount, CategoryFourOrFiveGetsTheSubletOrWasteDiscountButNoTax) {
  Workorder workorder = WithRates();
  workorder.Totals.Put(wototals::Discount[3], 300000);
  AddWoAmount(workorder, NonTaxSublet, 0, 1000);
  EXPECT_EQ(workorder.AmountDue, 800);
  AddWoAmount(workorder, NonTaxWaste, 0, 1000);
  EXPECT_EQ(workorder.AmountDue, 800 + 700);
  EXPECT_EQ(workorder.Totals.Get(wototals::WorkorderTax), 0);
}

TEST(AddWoAmount, ACreditLowersTheTotalAndTheAmountDueWithoutDiscountOrTax) {
  Workorder workorder = WithRates();
  AddWoAmount(workorder, Labor, 0, 10000);
  AddWoAmount(workorder, Credit, 0, 1500);
  EXPECT_EQ(workorder.Totals.Get(wototals::WorkorderTotal), 10000 - 500 - 1500);
  EXPECT_EQ(workorder.AmountDue, 8000);
  EXPECT_EQ(workorder.Totals.Get(wototals::Subtotal[6]), 1500);
  EXPECT_EQ(workorder.Totals.Get(wototals::WorkorderTax), 0);
}

TEST(AddWoAmount, LinesAddUp) {
  Workorder workorder = WithRates();
  workorder.AmountDue = 100;  // the two are kept apart
  AddWoAmount(workorder, Parts, 0, 10000);
  AddWoAmount(workorder, Parts, 0, 200);
  AddWoAmount(workorder, Parts, 200, 0);
  EXPECT_EQ(workorder.Totals.Get(wototals::Subtotal[0]), 10000);
  EXPECT_EQ(workorder.Totals.Get(wototals::WorkorderTax), 575);
  EXPECT_EQ(workorder.Totals.Get(wototals::WorkorderTotal), 9575);
  EXPECT_EQ(workorder.AmountDue, 9675);
}

TEST(AddWoAmount, ANegativeDiscountRateIsNone) {
  Workorder workorder = WithRates();
  workorder.Totals.Put(wototals::Discount[1], -50000);
  AddWoAmount(workorder, Labor, 0, 1000);
  EXPECT_EQ(workorder.AmountDue, 1000);
}

// A wrong amount would be billed.
TEST(AddWoAmount, MoneyThatNoFieldHoldsIsAnError) {
  Workorder workorder = WithRates();
  constexpr Cents kMost = std::numeric_limits<Cents>::max();
  AddWoAmount(workorder, Fuel, 0, kMost);
  EXPECT_EQ(workorder.Totals.Get(wototals::WorkorderTotal), kMost);
  EXPECT_THROW(AddWoAmount(workorder, Fuel, 0, 1), std::overflow_error);
  EXPECT_THROW(AddWoAmount(workorder, Parts, 0, 1), std::overflow_error);
  EXPECT_THROW(AddWoAmount(workorder, Parts, 0, kMost), std::overflow_error);
}

TEST(AddWoCost, ACostThatNoFieldHoldsIsAnError) {
  Workorder workorder = WithRates();
  AddWoCost(workorder, Parts, std::numeric_limits<Cents>::max());
  EXPECT_THROW(AddWoCost(workorder, Parts, 1), std::overflow_error);
}

TEST(AddWoCost, GoesToTheCostOfItsCategoryAlone) {
  Workorder workorder = WithRates();
  const WoTotals before = workorder.Totals;
  AddWoCost(workorder, NonTaxSublet, 250);
  AddWoCost(workorder, NonTaxSublet, 100);
  WoTotals expected = before;
  expected.Put(wototals::Cost[4], 350);
  EXPECT_EQ(workorder.Totals, expected);
}

struct Sums : testing::Test {
  Workorder workorder = WithRates();
  Cents Cost(WoCategory category) const {
    return workorder.Totals.Get(wototals::Cost[static_cast<std::size_t>(category)]);
  }
  Cents Subtotal(WoCategory category) const {
    return workorder.Totals.Get(wototals::Subtotal[static_cast<std::size_t>(category)]);
  }
  static WoExtraLine Extra(const char* vendor, Cents cost, Cents price, char taxable) {
    return {vendor, "", cost, price, "", taxable};
  }
};

TEST_F(Sums, ExtraLinesGoToTheirTaxableKindOrTheOther) {
  for (auto* lines : {&workorder.Sublets, &workorder.Waste}) {
    lines->Add(Extra("A", 100, 200, 'Y'));
    lines->Add(Extra("B", 10, 20, 'N'));
    lines->Add(Extra("C", 1, 2, ' '));
    lines->Add(Extra("D", 4, 5, 'y'));
    lines->Add(Extra("E", 1000, 2000, 'Y'));
  }
  SumSublets(workorder);
  EXPECT_EQ(Cost(Sublet), 1100);
  EXPECT_EQ(Subtotal(Sublet), 2200);
  EXPECT_EQ(Cost(NonTaxSublet), 15);
  EXPECT_EQ(Subtotal(NonTaxSublet), 27);
  EXPECT_EQ(Cost(Waste), 0) << "not summed up yet";
  SumWaste(workorder);
  EXPECT_EQ(Cost(Waste), 1100);
  EXPECT_EQ(Subtotal(Waste), 2200);
  EXPECT_EQ(Cost(NonTaxWaste), 15);
  EXPECT_EQ(Subtotal(NonTaxWaste), 27);
}

TEST_F(Sums, RemovedAndBlankEntriesAreSkippedAndTheSentinelEnds) {
  workorder.Sublets.Add(Extra("  free ", 1, 1, 'Y'));
  workorder.Sublets.Add(Extra("   ", 2, 2, 'Y'));
  workorder.Sublets.Add(Extra("A", 100, 200, 'Y'));
  workorder.Sublets.Add(Extra(" done", 4, 4, 'Y'));
  workorder.Sublets.Add(Extra("B", 8, 8, 'Y'));
  SumSublets(workorder);
  EXPECT_EQ(Cost(Sublet), 100);
  EXPECT_EQ(Subtotal(Sublet), 200);
  workorder.Credits.Add({1, {"free"}});
  workorder.Credits.Add({2, {""}});
  workorder.Credits.Add({1500, {"Coupon"}});
  workorder.Credits.Add({-500, {"Taken back"}});
  workorder.Credits.Add({4, {"done"}});
  workorder.Credits.Add({8, {"Behind"}});
  SumCredits(workorder);
  EXPECT_EQ(Subtotal(Credit), 1000);
}

TEST_F(Sums, AreBuiltAnewEachTime) {
  workorder.Totals.Put(wototals::Cost[2], 77);
  workorder.Totals.Put(wototals::Subtotal[4], 77);
  workorder.Totals.Put(wototals::Subtotal[6], 77);
  workorder.Totals.Put(wototals::WorkorderTotal, 77);
  workorder.Waste.Add(Extra("A", 1, 2, 'N'));
  for (int i = 0; i < 2; ++i) {
    SumSublets(workorder);
    SumWaste(workorder);
    SumCredits(workorder);
  }
  EXPECT_EQ(Cost(Sublet), 0);
  EXPECT_EQ(Subtotal(NonTaxSublet), 0);
  EXPECT_EQ(Subtotal(Credit), 0);
  EXPECT_EQ(Cost(NonTaxWaste), 1);
  EXPECT_EQ(workorder.Totals.Get(wototals::WorkorderTotal), 77) << "the total isn't theirs";
}

}  // namespace
}  // namespace lantos
