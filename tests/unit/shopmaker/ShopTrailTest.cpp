#include "shopmaker/ShopTrail.h"

#include "estimatedb/DatabaseFixture.h"
#include "shopmaker/ShopDirectory.h"

namespace lantos::test {

namespace {

// A shop with a change of yesterday and two of today.
class ShopTrailTest : public DatabaseTest {
 protected:
  ShopTrailTest() {
    db.NewEstimate(7, Day(2003, 9, 30));
    db.KeepTrail(clock, {"FRONTDESK", "beth"});
    db.SetStatus(1, 7);
    clock.MoveOn(24 * 3'600'000);
    db.SetStatus(2, 7);
    db.SetStatus(3, 7);
  }

  std::string Changes() const { return PlainValue("select count(*) from Trail"); }
};

}  // namespace

TEST_F(ShopTrailTest, WhatIsOlderThanTheDayGoesAndIsCounted) {
  EXPECT_EQ(PruneShopTrail(Path().parent_path(), clock.Today(), clock), 1);
  EXPECT_EQ(Changes(), "2");
  EXPECT_EQ(PruneShopTrail(Path().parent_path(), clock.Today(), clock), 0);
}

TEST_F(ShopTrailTest, ADayStillToComeIsRefused) {
  EXPECT_THROW(PruneShopTrail(Path().parent_path(), clock.Today() + 1, clock), ShopError);
  EXPECT_EQ(Changes(), "3");
}

TEST_F(ShopTrailTest, ADirectoryWithoutADatabaseIsNamed) {
  EXPECT_THROW(PruneShopTrail(Path().parent_path() / "nowhere", clock.Today(), clock), ShopError);
}

TEST_F(ShopTrailTest, ADatabaseWithoutATrailHasNothingToPrune) {
  Plain("drop table Trail");
  EXPECT_EQ(PruneShopTrail(Path().parent_path(), clock.Today(), clock), 0);
}

}  // namespace lantos::test
