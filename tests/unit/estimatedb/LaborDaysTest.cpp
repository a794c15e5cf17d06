#include "estimatedb/LaborDays.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "estimatedb/EitherDatabase.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LaborDays : public EitherDatabase {
 protected:
  LaborDays() {
    db.AddEstimateRow(1, Day(2003, 9, 30), 0);
    db.AddLabor(1, 1, "WORK", 100, 6500, 6500, 4);
  }

  std::vector<std::string> Kept() { return Sorted(KeptTechHours(db)); }
  std::vector<std::string> SummedUp() { return Sorted(db.TechHours()); }
  std::string Made() const {
    return PlainValue(
        Either("select count(*) from sqlite_master where name like 'LaborDays%'",
               "select count(*) from (select relname from pg_class where relnamespace = current_schema()::regnamespace "
               "and relkind in ('r', 'v', 'i') union all select tgname from pg_trigger join pg_class on "
               "pg_class.oid = tgrelid where relnamespace = current_schema()::regnamespace) as all_of_them "
               "where relname like 'labordays%'"));
  }

  de& db = database.lantosData;

 private:
  static std::vector<std::string> Sorted(Recordset& rows) {
    std::vector<std::string> all = Dump(rows);
    std::sort(all.begin(), all.end());
    return all;
  }
};

ON_EITHER_DATABASE(LaborDays);

TEST_P(LaborDays, AreMadeAtTheFirstLookAndNoOtherRowIsChanged) {
  const auto all = [this] { return PlainRows("select * from Estimates, Labors"); };
  const std::vector<std::string> before = all();
  EXPECT_EQ(Made(), "0") << "a new database has none";
  for (int i = 0; i < 2; ++i) {
    EXPECT_THAT(Kept(), ElementsAre("4|09/30/2003|100"));
    EXPECT_EQ(Made(), "10") << "a table, a view, two indexes, six triggers";
  }
  EXPECT_EQ(all(), before);
}

TEST_P(LaborDays, FollowTheProgramsOwnCommands) {
  Kept();
  db.AddLabor(1, 2, "MORE", 50, 0, 0, 4);
  EXPECT_THAT(Kept(), ElementsAre("4|09/30/2003|150"));
  db.SetStatus(6, 1);
  EXPECT_THAT(Kept(), IsEmpty());
  db.SetStatus(1, 1);
  db.DeleteLabor(1, 1);
  EXPECT_THAT(Kept(), ElementsAre("4|09/30/2003|50"));
  db.AddEstimateRow(2, Day(2003, 10, 1), 0);
  db.CloneLabors(2, 1);
  EXPECT_THAT(Kept(), ElementsAre("4|09/30/2003|50", "4|10/01/2003|50"));
}

// A change that another program makes, of any row there may be.
std::string AnyChange(std::mt19937& random) {
  const auto of = [&](auto... choices) {
    const std::string all[] = {std::string(choices)...};
    return all[random() % sizeof...(choices)];
  };
  const auto estimate = [&] { return of("1", "2", "3", "4", "null"); };
  const auto day = [&] { return of("'2003-09-30'", "'2003-10-01'", "null"); };
  const auto mechanic = [&] { return of("0", "4", "8", "null"); };
  const auto status = [&] { return of("0", "4", "6", "7", "9", "null"); };
  const auto line = [&] { return of("1", "2", "3", "null"); };
  switch (random() % 8) {
    case 0:
      return fmt::format("insert or {} into Estimates (EstimateNumber, SchedDate, Status) values ({}, {}, {})",
                         of("ignore", "replace"), estimate(), day(), status());
    case 1:
      return fmt::format("update or {} Estimates set {} where EstimateNumber = {}", of("ignore", "replace"),
                         of("Status = " + status(), "SchedDate = " + day(), "EstimateNumber = " + estimate()),
                         estimate());
    case 2:
      return fmt::format("delete from Estimates where EstimateNumber = {}", estimate());
    case 3:
      return fmt::format("delete from Labors where LaborNumber = {}", line());
    case 4:
      return fmt::format("update or {} Labors set {} where LaborNumber = {}", of("ignore", "replace"),
                         of("LaborHours = LaborHours + 25", "Mechanic = " + mechanic(),
                            "EstimateNumber = " + estimate(), "LaborNumber = " + line()),
                         line());
    default:
      return fmt::format(
          "insert or {} into Labors (EstimateNumber, LaborNumber, LaborHours, Mechanic) values ({}, {}, {}, {})",
          of("ignore", "replace"), estimate(), line(), of("100", "25", "-50", "null"), mechanic());
  }
}

// The same of a server: no key is null there, and what is in the way is refused or replaced in other words.
std::string AnyChangeOnAServer(std::mt19937& random) {
  const auto of = [&](auto... choices) {
    const std::string all[] = {std::string(choices)...};
    return all[random() % sizeof...(choices)];
  };
  const auto estimate = [&] { return of("1", "2", "3", "4", "5", "6"); };
  const auto day = [&] { return of("'2003-09-30'", "'2003-10-01'", "null"); };
  const auto mechanic = [&] { return of("0", "4", "8", "null"); };
  const auto status = [&] { return of("0", "2", "4", "5", "6", "7", "9", "null"); };
  const auto line = [&] { return of("1", "2", "3"); };
  switch (random() % 10) {
    case 0:
    case 8:
    case 9:
      return fmt::format("insert into Estimates (EstimateNumber, SchedDate, Status) values ({}, {}, {}) on conflict {}",
                         estimate(), day(), status(),
                         of("do nothing",
                            "(EstimateNumber) do update set SchedDate = excluded.SchedDate, "
                            "Status = excluded.Status"));
    case 1:
      return fmt::format("update Estimates set {} where EstimateNumber = {}",
                         of("Status = " + status(), "SchedDate = " + day(), "EstimateNumber = " + estimate()),
                         estimate());
    case 2:
      return fmt::format("delete from Estimates where EstimateNumber = {}", estimate());
    case 3:
      return fmt::format("delete from Labors where LaborNumber = {} and EstimateNumber = {}", line(), estimate());
    case 4:
      return fmt::format("update Labors set {} where LaborNumber = {} and EstimateNumber = {}",
                         of("LaborHours = LaborHours + 25", "Mechanic = " + mechanic(),
                            "EstimateNumber = " + estimate(), "LaborNumber = " + line()),
                         line(), estimate());
    default:
      return fmt::format(
          "insert into Labors (EstimateNumber, LaborNumber, LaborHours, Mechanic) values "
          "({}, {}, {}, {}) on conflict do nothing",
          estimate(), line(), of("100", "25", "-50", "null"), mechanic());
  }
}

TEST_P(LaborDays, GiveWhatTechHoursGivesAfterAnyChange) {
  Kept();
  std::mt19937 random(11);
  std::size_t most = 0;
  for (int i = 0; i < 300; ++i) {
    const std::string change = IsOnAServer() ? AnyChangeOnAServer(random) : AnyChange(random);
    try {
      Plain(change);
    } catch (const std::runtime_error&) {
      ASSERT_TRUE(IsOnAServer()) << change;  // a key that is there already
    }
    const std::vector<std::string> wanted = SummedUp();
    ASSERT_EQ(Kept(), wanted) << change;
    most = std::max(most, wanted.size());
  }
  EXPECT_GT(most, 4u);
}

TEST_P(LaborDays, OutliveAChangedColumn) {
  Kept();
  db.Run("WidenLaborDescription");
  db.AddLabor(1, 2, "MORE", 50, 0, 0, 8);
  EXPECT_THAT(Kept(), ElementsAre("4|09/30/2003|100", "8|09/30/2003|50"));
  EXPECT_EQ(Made(), "10");
}

TEST_P(LaborDays, WhereTheyCantBeMadeTheLinesAreSummedUp) {
  Plain("create table Another (Number integer)");
  Plain("create index LaborDaysByEstimate on Another (Number)");  // the name is taken
  EXPECT_THAT(Kept(), ElementsAre("4|09/30/2003|100"));
  EXPECT_EQ(Made(), "1") << "nothing is left half made";
}

TEST_P(LaborDays, ALockedDatabaseIsToldByTheReading) {
  database.busyTimeout = std::chrono::milliseconds(30);
  Connect(database, environment);
  db.Disconnect();
  const std::unique_ptr<Engine> other = Workstation();
  other->Together([&] {
    other->Run("update StandardHours set FudgeFactor = 5", {});
    EXPECT_THAT(Kept(), ElementsAre("4|09/30/2003|100")) << "somebody else is about to write";
  });
  EXPECT_EQ(Made(), "0");
}

TEST_P(LaborDays, WithoutLinesThereIsAnError) {
  Plain("drop table Labors");
  EXPECT_THROW(Kept(), DatabaseError);
}

}  // namespace
}  // namespace lantos::test
