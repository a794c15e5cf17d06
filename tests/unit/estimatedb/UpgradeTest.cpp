#include "UpgradeFixture.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(Upgrades, ACurrentDatabasePassesAllStepsWithoutWritingAnything) {
  Put("Lantos.mdb", EmptyDatabase());
  db.AddEstimateRow(1, 37894, 0);
  db.Disconnect();
  const auto before = Everything();
  const auto written = std::filesystem::last_write_time(Path());
  Run();
  db.Disconnect();
  EXPECT_EQ(Everything(), before) << "no other file appears, the vehicle file for instance";
  EXPECT_EQ(std::filesystem::last_write_time(Path()), written);
}

TEST_F(Upgrades, TheOldestLevelGetsAllColumnsAndTables) {
  PutOldest();
  Run();
  EXPECT_THAT(
      Columns("Estimates"),
      ElementsAre("EstimateNumber INTEGER", "CustomerNumber INTEGER", "VehicleLink INTEGER", "SchedDate DATE",
                  "Comments Text(255)", "VehYear Text(5)", "VehMake Text(20)", "VehModel Text(20)", "VehVIN Text(20)",
                  "VehLic Text(10)", "VehDate Text(10)", "VehMileage Text(7)", "VehEng Text(12)", "VehTrans Text(12)"));
  EXPECT_THAT(Columns("Waste"), ElementsAre("EstimateNumber INTEGER", "WasteNumber INTEGER", "VendorName Text(32)",
                                            "VendorInvoice Text(11)", "Cost INTEGER", "Price INTEGER", "Desc1 Text(65)",
                                            "Desc2 Text(65)", "Desc3 Text(65)", "Desc4 Text(65)", "Taxable Text(3)"));
  EXPECT_THAT(Columns("Checklist"), ElementsAre("EstimateNumber INTEGER", "RecId INTEGER", "ChecklistData Text(255)"));
  db.AddWaste(1, 1, {});
  EXPECT_THROW(db.AddWaste(1, 1, {}), DatabaseError) << "the key";
}

TEST_F(Upgrades, AnUpgradedDatabaseIsLeftAloneTheNextTime) {
  PutOldest();
  Run();
  db.Disconnect();
  const std::string before = BytesOf("Lantos.mdb");
  Run();
  db.Disconnect();
  EXPECT_EQ(BytesOf("Lantos.mdb"), before);
}

TEST_F(Upgrades, RowsGetTheVehicleTheyAreLinkedTo) {
  PutOldest();
  Put("TQVEHICL.DAT", Vehicle(77, "1999", "Ford", "F150", "VIN1", "ABC", "5.3L")
                          .Long(377, 84512)
                          .Long(381, 731868)
                          .Append(Vehicle(78, "", " Audi ", "", "", "", "")));
  Plain(
      "insert into Estimates (EstimateNumber, VehicleLink, SchedDate, Comments) values (1, 0, '2003-09-30', 'c'),"
      "(2, 397, '2003-09-30', null)");
  Run();
  EXPECT_THAT(Snapshots(),
              ElementsAre("1999|Ford|F150|VIN1|ABC|" + FormatDate(FromFileDate(731868)) + "|84512|5.3L|Auto",
                          " |Audi| | | | |0| |Auto"));
  EXPECT_THAT(PlainRows("select EstimateNumber, VehicleLink, SchedDate, Comments from Estimates"),
              ElementsAre("1|0|2003-09-30|c", "2|397|2003-09-30|null"));
}

TEST_F(Upgrades, AnEstimateWithoutAVehicleGetsBlanksNotNulls) {
  PutOldest();
  Put("TQVEHICL.DAT", Vehicle(77, "1999", "Ford", "F150", "VIN1", "ABC", "5.3L"));
  Plain("insert into Estimates (EstimateNumber, VehicleLink) values (1, -1), (2, null)");
  Run();
  EXPECT_THAT(Snapshots(), ElementsAre(" | | | | | | | | ", " | | | | | | | | "));
}

TEST_F(Upgrades, ALinkBehindTheEndOfTheFileGivesBlanks) {
  PutOldest();
  Put("TQVEHICL.DAT", "");
  Plain("insert into Estimates (EstimateNumber, VehicleLink) values (1, 39700), (2, -5)");
  Run();
  EXPECT_THAT(Snapshots(), ElementsAre(" | | | | | |0| | ", " | | | | | |0| | "));
}

TEST_F(Upgrades, TextsOfVehiclesAreCutAtTheColumnsWidth) {
  PutOldest();
  Put("TQVEHICL.DAT", Vehicle(77, "199999", "Ford", "F150", "VIN1", "ABC", "5.3L").Long(377, 123456789));
  Plain("insert into Estimates (EstimateNumber, VehicleLink) values (1, 0)");
  Run();
  EXPECT_THAT(Snapshots(), ElementsAre("19999|Ford|F150|VIN1|ABC| |1234567|5.3L|Auto"));
}

TEST_F(Upgrades, HundredsOfRowsAreAllFilled) {
  PutOldest();
  Put("TQVEHICL.DAT", Vehicle(77, "1999", "Ford", "F150", "VIN1", "ABC", "5.3L"));
  Plain(
      "with recursive n(i) as (select 1 union all select i + 1 from n where i < 250) "
      "insert into Estimates (EstimateNumber, VehicleLink) select i, 0 from n");
  Run();
  EXPECT_EQ(PlainValue("select count(*) from Estimates where VehMake = 'Ford' and VehTrans = 'Auto'"), "250");
}

TEST_F(Upgrades, AFailureOnTheWayUndoesTheColumnsAndTheNextStartTriesAgain) {
  PutOldest();
  Plain(
      "insert into Estimates (EstimateNumber, VehicleLink) values (1, -1), (2, -1);"
      "create trigger Refuse before update on Estimates when new.EstimateNumber = 2 "
      "begin select raise(abort, 'the disk is full'); end");
  const std::vector<std::string> before = Columns("Estimates");
  EXPECT_THAT(ErrorOf([&] { Run(); }), HasSubstr("the disk is full"));
  EXPECT_EQ(Columns("Estimates"), before);
  Plain("drop trigger Refuse");
  Run();
  EXPECT_THAT(Snapshots(), ElementsAre(" | | | | | | | | ", " | | | | | | | | "));
}

TEST_F(Upgrades, HalfDoneRowsWhoseColumnsAreThereStayAsTheyAre) {
  PutEstimates(
      ", VehYear Text(5), VehMake Text(20), VehModel Text(20), VehVIN Text(20), VehLic Text(10), "
      "VehDate Text(10), VehMileage Text(7), VehEng Text(12), VehTrans Text(12)");
  Put("TQVEHICL.DAT", Vehicle(77, "1999", "Ford", "F150", "VIN1", "ABC", "5.3L"));
  Plain("insert into Estimates (EstimateNumber, VehicleLink, VehMake) values (1, 0, 'half'), (2, 0, null)");
  Run();
  EXPECT_THAT(PlainRows("select VehMake, VehEng from Estimates"), ElementsAre("half|null", "null|null"));
}

TEST_F(Upgrades, GivingUpOnTheVehicleFileEndsTheRunAndTheNextStartTriesAgain) {
  PutOldest();
  Put("TQVEHICL.DAT", Vehicle(77, "1999", "Ford", "F150", "VIN1", "ABC", "5.3L"));
  Plain("insert into Estimates (EstimateNumber, VehicleLink, Comments) values (1, 0, 'c')");
  const std::vector<std::string> before = Columns("Estimates");
  {
    const SharedFile held = HeldByAnother("TQVEHICL.DAT");
    desktop.WillAnswer(ui::Answer::Cancel);
    EXPECT_THAT(ErrorOf([&] { Run(); }), HasSubstr("vehicle file"));
  }
  EXPECT_EQ(Columns("Estimates"), before);
  Run();
  EXPECT_THAT(Snapshots(), ElementsAre("1999|Ford|F150|VIN1|ABC| |0|5.3L|Auto"));
}

TEST_F(Upgrades, NobodyIsKeptOutWhileThePersonIsAskedForTheVehicleFile) {
  PutOldest();
  Plain("insert into Estimates (EstimateNumber, VehicleLink) values (1, -1)");
  std::optional<SharedFile> held = HeldByAnother("TQVEHICL.DAT");
  desktop.WillAnswer([&](const ui::Box&) {
    Plain("update Estimates set Comments = 'booked meanwhile'");
    held.reset();
    return ui::Answer::Retry;
  });
  Run();
  EXPECT_EQ(PlainValue("select Comments, VehMake from Estimates"), "booked meanwhile| ");
}

// Another workstation is through with the work between this one's look and its turn.
TEST_F(Upgrades, WhatAnotherCopyHasDoneMeanwhileIsNotDoneAgain) {
  PutOldest();
  Put("TQVEHICL.DAT", Vehicle(77, "1999", "Ford", "F150", "VIN1", "ABC", "5.3L"));
  Plain("insert into Estimates (EstimateNumber, VehicleLink) values (1, 0)");
  bool isFirst = true;
  std::vector<std::string> changes;
  StatementsOf(db, [&](std::string_view statement) {
    if (!statement.starts_with("Select") && !statement.starts_with("SELECT")) changes.emplace_back(statement);
    if (statement.find("Checklist") == std::string_view::npos || !std::exchange(isFirst, false)) return;
    EstimateDatabase other(environment, records);
    Connect(other, environment);
    UpgradeDatabase(other, environment, records);
    Plain("update Estimates set VehMake = 'changed since'");
  });
  Run();
  EXPECT_THAT(changes, IsEmpty());
  EXPECT_THAT(Snapshots(), ElementsAre("1999|changed since|F150|VIN1|ABC| |0|5.3L|Auto"));
}

TEST_F(Upgrades, PartsGetCostAndListPriceOfZero) {
  PutOldest();
  Plain("insert into Parts values (1, 'A', 'Filter', 2, 599, 1198), (1, 'B', null, null, null, null)");
  Run();
  EXPECT_THAT(PlainRows("select * from Parts"),
              ElementsAre("1|A|Filter|2|599|1198|0|0", "1|B|null|null|null|null|0|0"));
}

class UpgradesOfLabors : public Upgrades {
 protected:
  UpgradesOfLabors() {
    PutOldest();
    Plain(
        "DROP TABLE Labors;"
        "CREATE TABLE Labors (EstimateNumber INTEGER, LaborNumber INTEGER, Description VARCHAR(255) DEFAULT 'none, "
        "yet', LaborHours INTEGER DEFAULT 7, LaborRate INTEGER, LaborTotal INTEGER, Mechanic INTEGER, "
        "CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber, LaborNumber));"
        "CREATE INDEX ByMechanic ON Labors (Mechanic);"
        "CREATE VIEW Work AS SELECT Description FROM Labors;"
        "CREATE TABLE Seen (Number INTEGER);"
        "CREATE TRIGGER Note AFTER INSERT ON Labors BEGIN INSERT INTO Seen VALUES (new.LaborNumber); END;"
        "insert into Labors values (5, 2, '0123', 1, 2, 3, 4), (5, 1, 'Caf\xC3\xA9\r\nline', null, 2, 3, 4)");
  }
};

TEST_F(UpgradesOfLabors, TheDescriptionBecomesAMemoAndRowsDefaultsAndKeysStay) {
  Run();
  EXPECT_THAT(Columns("Labors")[2], "Description LongText");
  EXPECT_THAT(PlainRows("select rowid, * from Labors order by rowid"),
              ElementsAre("1|5|2|0123|1|2|3|4", "2|5|1|Caf\xC3\xA9\r\nline|null|2|3|4"));
  EXPECT_EQ(PlainValue("select group_concat(dflt_value, ';') from pragma_table_info('Labors')"), "'none, yet';7");
  EXPECT_THROW(db.AddLabor(5, 1, "x", 0, 0, 0, 0), DatabaseError);
}

TEST_F(UpgradesOfLabors, IndexesTriggersAndViewsOfTheTableStay) {
  Run();
  EXPECT_THAT(PlainRows("select name from sqlite_master where type in ('index', 'trigger', 'view') and sql is not null "
                        "and tbl_name in ('Labors', 'Work') order by name"),
              ElementsAre("ByMechanic", "Note", "Work"));
  db.AddLabor(6, 9, "new", 0, 0, 0, 0);
  EXPECT_THAT(PlainRows("select Number from Seen"), ElementsAre("2", "1", "9"));
  EXPECT_EQ(PlainRows("select * from Work").size(), 3U);
}

TEST_F(UpgradesOfLabors, AFailureOnTheWayLeavesTheTableAsItWas) {
  Plain("CREATE TABLE Labors_changed (A INTEGER)");
  EXPECT_THAT(ErrorOf([&] { Run(); }), HasSubstr("ALTER TABLE Labors ALTER COLUMN Description Memo"));
  EXPECT_THAT(Columns("Labors")[2], "Description VARCHAR(255)");
  EXPECT_EQ(PlainRows("select * from Labors").size(), 2U);
}

TEST_F(Upgrades, ADescriptionThatIsAMemoAlreadyIsNotAltered) {
  for (const char* type : {"LongText", "Memo", "TEXT"}) {
    std::filesystem::remove(Path());
    PutOldest();
    Plain(std::string("DROP TABLE Labors; CREATE TABLE Labors (EstimateNumber INTEGER, Description ") + type + ")");
    Run();
    EXPECT_EQ(Columns("Labors")[1], std::string("Description ") + type);
    db.Disconnect();
  }
}

TEST_F(Upgrades, RowsOfWasteAndChecklistThatAreThereStay) {
  PutOldest();
  Plain("CREATE TABLE Waste (EstimateNumber INTEGER, Own TEXT); insert into Waste values (1, 'x')");
  Run();
  EXPECT_EQ(PlainValue("select * from Waste"), "1|x");
}

// A lock that another copy holds at a probe says nothing about the table.
TEST_F(Upgrades, AProbeThatIsLockedOutMakesNoTable) {
  PutOldest();
  StatementsOf(db, [](std::string_view statement) {
    if (statement.find("Waste") != std::string_view::npos) throw DatabaseError("locked", DatabaseErrorKind::Locked);
  });
  EXPECT_EQ(ErrorOf([&] { Run(); }), "locked");
  db.Disconnect();
  EXPECT_THAT(Columns("Waste"), IsEmpty());
  Connect(database, environment);
  Run();
  EXPECT_EQ(Columns("Waste").size(), 11U);
}

TEST_F(Upgrades, EveryStepStandsInTheTableOfCommands) {
  PutOldest();
  Plain("drop table Labors; create table Labors (EstimateNumber INTEGER, Description VARCHAR(255))");
  std::vector<std::string> strangers;
  std::size_t count = 0;
  StatementsOf(db, [&](std::string_view statement) {
    ++count;
    if (!IsInTable(kLantosCommands, statement)) strangers.emplace_back(statement);
  });
  Run();
  EXPECT_THAT(strangers, IsEmpty());
  EXPECT_EQ(count, 5 + 5 + 1 + 9 + 1 + 3 + 1 + 2U)
      << "probes, the same under the lock, columns that are there, columns, rows, parts, labors, tables";
}

TEST_F(Upgrades, ADatabaseWithoutItsBaseTablesIsAnErrorThatNamesTheTable) {
  Plain("CREATE TABLE Something (A)");
  EXPECT_THAT(ErrorOf([&] { Run(); }), HasSubstr("Estimates"));
  EXPECT_THAT(PlainRows("select name from sqlite_master"), ElementsAre("Something"));
}

}  // namespace
}  // namespace lantos::test
