#include "EitherDatabase.h"
#include "UpgradeFixture.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Databases of an earlier level, made in the program's own dialect.
class EitherUpgrade : public EitherDatabase {
 protected:
  void PutOldest() {
    const std::unique_ptr<Engine> engine = Workstation();
    for (const char* table : {"Estimates", "Parts", "Labors", "Waste", "Checklist"}) {
      engine->Run(std::string("DROP TABLE ") + table, {});
    }
    engine->Run(
        "CREATE TABLE Estimates (EstimateNumber Long,CustomerNumber Long DEFAULT 0,VehicleLink Long DEFAULT 0,"
        "SchedDate Date,Comments Text(255),CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber))",
        {});
    engine->Run(
        "CREATE TABLE Parts (EstimateNumber Long,PartNumber Text(20),PartDesc Text(38),Quantity Long,PartPrice Long,"
        "PartTotal Long,CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber,PartNumber))",
        {});
    engine->Run(
        "CREATE TABLE Labors (EstimateNumber Long,LaborNumber Long,Description Text(255),LaborHours Long,LaborRate "
        "Long,LaborTotal Long,Mechanic Long,CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber,LaborNumber))",
        {});
  }
  void Run() { UpgradeDatabase(database, environment, records); }
  std::vector<std::string> Columns(const std::string& table) {
    return Workstation()->Run("select * from " + table, {}).Columns();
  }
};

ON_EITHER_DATABASE(EitherUpgrade);

TEST_P(EitherUpgrade, ACurrentDatabaseIsOnlyLookedAt) {
  std::vector<std::string> statements;
  db.SetOpener([&] {
    return std::make_unique<WatchedEngine>(
        Workstation(), [&](std::string_view statement) { statements.emplace_back(statement.substr(0, 6)); });
  });
  Run();
  EXPECT_THAT(statements, ElementsAre("Select", "Select", "Select", "Select", "Select"));
}

TEST_P(EitherUpgrade, TheOldestLevelGetsAllColumnsAndTablesAndItsRowsAreFilled) {
  PutOldest();
  Put("TQVEHICL.DAT", Vehicle(77, "1999", "Ford", "F150", "VIN1", "ABC", "5.3L"));
  Plain(
      "insert into Estimates (EstimateNumber, VehicleLink) values (1, 0), (2, -1);"
      "insert into Parts values (1, 'A', 'Filter', 2, 599, 1198);"
      "insert into Labors values (5, 2, '0123', 1, 2, 3, 4)");
  Run();
  EXPECT_THAT(PlainRows("select VehYear, VehMake, VehVIN, VehEng, VehTrans from Estimates order by EstimateNumber"),
              ElementsAre("1999|Ford|VIN1|5.3L|Auto", " | | | | "));
  EXPECT_EQ(PlainValue("select * from Parts"), "1|A|Filter|2|599|1198|0|0");
  EXPECT_EQ(Workstation()->Run("select * from Labors", {}).TypeOf("Description"), ColumnType::LongText);
  EXPECT_EQ(PlainValue("select * from Labors"), "5|2|0123|1|2|3|4");
  EXPECT_EQ(Columns("Waste").size(), 11U);
  db.AddChecklistRow(1, "wipers");
  EXPECT_EQ(db.ChecklistTable().Long("RecId"), 1);
  EXPECT_THROW(db.AddLabor(5, 2, "x", 0, 0, 0, 0), DatabaseError) << "the key";
}

TEST_P(EitherUpgrade, AFailureOnTheWayUndoesColumnsAndRowsAndTheNextStartTriesAgain) {
  PutOldest();
  Plain("insert into Estimates (EstimateNumber, VehicleLink) values (1, -1), (2, -1)");
  Refuse("update", "Estimates");
  const std::vector<std::string> before = Columns("Estimates");
  EXPECT_THAT(ErrorOf([&] { Run(); }), HasSubstr("not today"));
  EXPECT_EQ(Columns("Estimates"), before);
  AllowAgain("Estimates");
  Run();
  EXPECT_THAT(PlainRows("select VehMake from Estimates"), ElementsAre(" ", " "));
}

}  // namespace
}  // namespace lantos::test
