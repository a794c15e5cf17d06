#include "contents/Surcharge.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "contents/ContentsBench.h"
#include "records/modSystem.h"

namespace lantos {
namespace {

using test::ContentsBench;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

struct SurchargeBench : ContentsBench {
  SurchargeBench() {
    SystemRecord& system = records.system.SysRec;
    system.Put(sysrec::labor_surcharge_percent, 50000);
    system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
    system.Put(sysrec::surcharge_is_sublet, 'Y');
  }
  void PutLabor(std::int32_t number, Cents total) {
    database.lantosData.AddLabor(1001, number, "NOT THIS 50.00", 0, 0, total, 0);
  }
  std::string Line(std::string_view column, std::string_view table = "Sublets") {
    return Ask("select " + std::string(column) + " from " + std::string(table) + " where VendorName = 'SURCHARGE'");
  }
};

TEST(SurchargeOn, ARateIsMillionthsOfTheSumToTheNearestCentHalvesToEven) {
  EXPECT_EQ(SurchargeOn(10000, 50000), 500);
  EXPECT_EQ(SurchargeOn(970, 50000), 48);  // 48.5
  EXPECT_EQ(SurchargeOn(990, 50000), 50);  // 49.5
  EXPECT_EQ(SurchargeOn(100, 1000000), 100);
}

TEST(SurchargeOn, ANegativeRateIsAFlatAmount) {
  EXPECT_EQ(SurchargeOn(1, -50000), 500);
  EXPECT_EQ(SurchargeOn(999999, -50000), 500);
}

TEST(SurchargeOn, WithoutASumThereIsNoneFlatOrNot) {
  EXPECT_EQ(SurchargeOn(0, 50000), 0);
  EXPECT_EQ(SurchargeOn(0, -50000), 0);
  EXPECT_EQ(SurchargeOn(-100, -50000), 0);
  EXPECT_EQ(SurchargeOn(100, 0), 0);
}

TEST(SurchargeOn, AnAmountThatNoFieldHoldsEndsTheEvent) {
  constexpr std::int64_t kManyOfTheLargest = 1000LL * 2147483647;
  EXPECT_EQ(SurchargeOn(2147483647, 1000000), 2147483647);
  EXPECT_EQ(SurchargeOn(kManyOfTheLargest, 1000), 2147483647);
  EXPECT_EQ(SurchargeOn(kManyOfTheLargest, -2147483647 - 1), 21474836);
  EXPECT_THROW(SurchargeOn(2147483647, 1000001), std::overflow_error);
  EXPECT_THROW(SurchargeOn(kManyOfTheLargest * 1000000, 2147483647), std::overflow_error);
}

TEST(Surcharge, NothingIsWrittenWithoutRatesOrDescription) {
  SurchargeBench bench;
  bench.records.system.SysRec.Put(sysrec::surcharge_description, "   ");
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Line("count(*)"), "0");
  bench.records.system.SysRec.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  bench.records.system.SysRec.Put(sysrec::labor_surcharge_percent, 0);
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Line("count(*)"), "0");
}

TEST(Surcharge, AnAmountOfZeroIsWrittenToo) {
  SurchargeBench bench;
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Line("Price"), "0");
  EXPECT_EQ(bench.Line("Desc1"), "SHOP SUPPLIES");
  EXPECT_EQ(bench.Line("Taxable"), "No");
}

TEST(Surcharge, OnlyLaborAboveZeroCounts) {
  SurchargeBench bench;
  bench.PutLabor(1, 10000);
  bench.PutLabor(2, -6500);
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Line("Price"), "500");
  EXPECT_EQ(bench.Line("Cost"), "500");
}

TEST(Surcharge, AnotherLineOfNumber1KeepsItOutAndIsNamed) {
  SurchargeBench bench;
  bench.desktop.failuresExpected = true;
  std::string logged;
  bench.desktop.logFailure = [&logged](const std::string& text) { logged = text; };
  bench.database.lantosData.AddSublet(1001, 1, {"VENDOR", "", 0, 100, "", "", "", "", "No"});
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Line("count(*)"), "0");
  ASSERT_EQ(bench.desktop.failures.size(), 1U);
  const std::string told = bench.desktop.failures.front();
  EXPECT_THAT(told, HasSubstr("the sublet \"VENDOR\" stands there"));
  EXPECT_THAT(told, AllOf(Not(HasSubstr("insert")), Not(HasSubstr("UNIQUE")), Not(HasSubstr("Statement"))));
  EXPECT_THAT(logged, AllOf(HasSubstr("UNIQUE"), HasSubstr("Statement: ")));
  EXPECT_EQ(bench.board.totalRefreshes, 1);
  EXPECT_EQ(bench.board.dayRefreshes, 1);
}

TEST(Surcharge, ADisposalFeeKeepsItOutOfTheWaste) {
  SurchargeBench bench;
  bench.desktop.failuresExpected = true;
  bench.records.system.SysRec.Put(sysrec::surcharge_is_sublet, 'N');
  bench.database.lantosData.AddWaste(1001, 1, {"Waste Disposal Fee", "", 0, 100, "", "", "", "", "No"});
  bench.contents.surcharge.ApplySurcharge();
  ASSERT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_THAT(bench.desktop.failures.front(), HasSubstr("the waste charge \"Waste Disposal Fee\" stands there"));
  // What the box tells to do makes room.
  bench.database.lantosData.AddWaste(1001, 2, {"Waste Disposal Fee", "", 0, 100, "", "", "", "", "No"});
  bench.database.lantosData.DeleteWaste(1001, 1);
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Line("count(*)", "Waste"), "1");
}

TEST(Surcharge, AnyOtherFailureIsToldToo) {
  SurchargeBench bench;
  bench.desktop.failuresExpected = true;
  bench.Do("create trigger Refuse before insert on Sublets begin select raise(abort, 'no'); end");
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_THAT(bench.desktop.failures, ElementsAre(std::string(WordsOf(DatabaseErrorKind::Refused))));
  EXPECT_EQ(bench.board.totalRefreshes, 1);
}

TEST(Surcharge, ADescriptionMayHoldAnApostrophe) {
  SurchargeBench bench;
  bench.records.system.SysRec.Put(sysrec::surcharge_description, "MILLER'S SUPPLIES");
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Line("Desc1"), "MILLER'S SUPPLIES");
}

TEST(Surcharge, GoesToWasteUnlessItIsASublet) {
  SurchargeBench bench;
  bench.records.system.SysRec.Put(sysrec::surcharge_is_sublet, 'N');
  bench.records.system.SysRec.Put(sysrec::tax_rate_waste, 1);
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Line("count(*)"), "0");
  EXPECT_EQ(bench.Line("Taxable", "Waste"), "Yes");
}

}  // namespace
}  // namespace lantos
