#include "workorders/WorkorderSums.h"

#include <gtest/gtest.h>

namespace lantos::test {
namespace {

WoTotals Sold(Cents each) {
  WoTotals totals;
  for (const LongField field : wototals::Subtotal) totals.Put(field, each);
  return totals;
}

TEST(WorkorderSums, AnyRateOrAmountIsADiscount) {
  WoTotals totals = Sold(100);
  EXPECT_FALSE(HasDiscount(totals));
  for (const LongField rate : wototals::Discount) {
    WoTotals one = totals;
    one.Put(rate, 1);
    EXPECT_TRUE(HasDiscount(one));
  }
  totals.Put(wototals::DollarDiscount, 1);
  EXPECT_TRUE(HasDiscount(totals));
}

TEST(WorkorderSums, ThePriceIsWhatWasSoldLessItsDiscounts) {
  WoTotals totals = Sold(10000);
  EXPECT_EQ(PriceOf(totals), 60000) << "neither credits nor fuel";
  totals.Put(wototals::Discount[0], 100000);  // 10 % of the parts
  EXPECT_EQ(PriceOf(totals), 59000);
  totals.Put(wototals::Discount[2], 50000);  // 5 % of the sublets, taxable or not
  EXPECT_EQ(PriceOf(totals), 58000);
  totals.Put(wototals::Discount[3], 10000);  // 1 % of the waste, in the same way
  EXPECT_EQ(PriceOf(totals), 57800);
  totals.Put(wototals::DollarDiscount, 300);
  EXPECT_EQ(PriceOf(totals), 57500);
  EXPECT_EQ(DiscountOf(totals), 2500);
}

TEST(WorkorderSums, EachDiscountIsRoundedToACentWithHalvesToEven) {
  WoTotals totals;
  totals.Put(wototals::Subtotal[1], 250);
  totals.Put(wototals::Discount[1], 10000);  // 2.5 cents
  EXPECT_EQ(DiscountOf(totals), 2);
  totals.Put(wototals::Subtotal[1], 350);  // 3.5
  EXPECT_EQ(DiscountOf(totals), 4);
}

TEST(WorkorderSums, TheCostIsThatOfAllSixKindsAndSumsAreWiderThanTheirFields) {
  WoTotals totals;
  for (const LongField field : wototals::Cost) totals.Put(field, 2000000000);
  EXPECT_EQ(CostOf(totals), 12000000000);
  EXPECT_EQ(PriceOf(Sold(2000000000)), 12000000000);
}

}  // namespace
}  // namespace lantos::test
