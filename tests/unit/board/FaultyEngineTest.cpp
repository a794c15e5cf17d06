#include "support/FaultyEngine.h"

#include <gtest/gtest.h>

#include "board/DayCapacityDatabase.h"

namespace lantos {
namespace {

using test::Fault;

struct FaultyShop : test::BoardShop {
  FaultyShop() { MakeFaulty(database, environment, faults); }

  DatabaseErrorKind KindOfStoring() {
    try {
      database.lantosData.Connection().Together([&] { database.lantosData.SetStatus(kInProgress, 900); });
    } catch (const DatabaseError& error) {
      return error.Kind();
    }
    return DatabaseErrorKind::Other;
  }

  test::StatementFaults faults;
};

TEST(FaultyEngine, EachStatementOfATransactionFailsAndTakesItBack) {
  FaultyShop shop;
  shop.database.lantosData.AddEstimateRow(900, shop.Today(), kArrived);
  const std::pair<Fault, DatabaseErrorKind> kinds[] = {{Fault::DiskFull, DatabaseErrorKind::Full},
                                                       {Fault::DeviceIo, DatabaseErrorKind::Unreachable},
                                                       {Fault::ReadOnly, DatabaseErrorKind::ReadOnly},
                                                       {Fault::Held, DatabaseErrorKind::Locked}};
  for (const auto& [fault, kind] : kinds) {
    for (std::size_t i = 0; i < 3; ++i) {  // begin, the statement, commit
      shop.faults.FailAt(shop.faults.Statements().size() + i, fault);
      EXPECT_EQ(shop.KindOfStoring(), kind) << test::NameOf(fault) << " at " << i;
      EXPECT_EQ(shop.StoredStatus(900), "1");
    }
  }
  shop.faults.Mend();
  EXPECT_EQ(shop.KindOfStoring(), DatabaseErrorKind::Other);
  EXPECT_EQ(shop.StoredStatus(900), "2");
}

TEST(FaultyEngine, AChangeThatIsPostedFailsToo) {
  FaultyShop shop;
  de& data = shop.database.lantosData;
  data.AddEstimateRow(900, shop.Today(), kArrived);
  const auto store = [&] { data.Connection().Together([&] { data.AddLabor(900, 1, "Brakes", 100, 6500, 6500, 4); }); };
  for (std::size_t i = 0; i < 3; ++i) {  // begin, the statement, commit
    shop.faults.FailAt(shop.faults.Statements().size() + i, Fault::DiskFull);
    EXPECT_THROW(store(), DatabaseError) << i;
    EXPECT_TRUE(data.LaborForEstimate(900).Eof()) << i;
  }
  shop.faults.Mend();
  store();
  EXPECT_EQ(data.LaborForEstimate(900).Count(), 1U);
}

// The calls of the database engine on its file go the same way as the program's own.
TEST(FaultyCalls, OfTheDatabaseFailAsItsOwnErrors) {
  test::BoardShop shop;
  shop.database.lantosData.AddEstimateRow(900, shop.Today(), kArrived);
  test::FaultyCalls calls(shop.directory.Path());
  shop.database.lantosData.Disconnect();
  calls.FailOn("Lantos.mdb-journal", test::CallKind::Write, Fault::DiskFull);
  try {
    shop.database.lantosData.SetStatus(kInProgress, 900);
    FAIL() << "stored on a full disk";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Kind(), DatabaseErrorKind::Full);
  }
  calls.Mend();
  EXPECT_EQ(shop.StoredStatus(900), "1");
}

}  // namespace
}  // namespace lantos
