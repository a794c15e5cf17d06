#include <sys/stat.h>

#include "DatabaseFixture.h"
#include "estimatedb/EngineChoice.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class NewDatabases : public DatabaseTest {
 protected:
  // Name, type, default and place in the key of each column.
  static std::vector<std::string> Shape(const std::filesystem::path& path, const std::string& table) {
    return test::PlainRows(path, "select name, type, dflt_value, pk from pragma_table_info('" + table + "')");
  }
  std::vector<std::string> Shape(const std::string& table) const { return Shape(Path(), table); }
};

TEST_F(NewDatabases, EstimatesHaveTheirColumnsTypesAndDefaults) {
  EXPECT_THAT(Shape("Estimates"),
              ElementsAre("EstimateNumber|INTEGER|null|1", "CustomerNumber|INTEGER|0|0", "VehicleLink|INTEGER|0|0",
                          "SchedDate|Date|null|0", "StartDate|Date|null|0", "StopDate|Date|null|0",
                          "Status|SMALLINT|0|0", "Mechanic|INTEGER|0|0", "TotalPrice|Double|0|0",
                          "Comments|Text(255)|null|0", "CreateDate|Date|date('now','localtime')|0",
                          "VehYear|Text(5)|null|0", "VehMake|Text(20)|null|0", "VehModel|Text(20)|null|0",
                          "VehVIN|Text(20)|null|0", "VehLic|Text(10)|null|0", "VehDate|Text(10)|null|0",
                          "VehMileage|Text(7)|null|0", "VehEng|Text(12)|null|0", "VehTrans|Text(12)|null|0"));
}

TEST_F(NewDatabases, LinesAreKeyedByEstimateAndLine) {
  EXPECT_THAT(Shape("Labors"), ElementsAre("EstimateNumber|INTEGER|null|1", "LaborNumber|INTEGER|null|2",
                                           "Description|LongText|null|0", "LaborHours|INTEGER|0|0",
                                           "LaborRate|INTEGER|0|0", "LaborTotal|INTEGER|0|0", "Mechanic|INTEGER|0|0"));
  EXPECT_THAT(Shape("Parts"),
              ElementsAre("EstimateNumber|INTEGER|null|1", "PartNumber|Text(20)|null|2", "PartDesc|Text(38)|null|0",
                          "Quantity|INTEGER|0|0", "PartPrice|INTEGER|0|0", "PartTotal|INTEGER|0|0",
                          "PartCost|INTEGER|null|0", "PartList|INTEGER|null|0"));
  EXPECT_THAT(Shape("Waste"),
              ElementsAre("EstimateNumber|INTEGER|null|1", "WasteNumber|INTEGER|null|2", "VendorName|Text(32)|null|0",
                          "VendorInvoice|Text(11)|null|0", "Cost|INTEGER|null|0", "Price|INTEGER|null|0",
                          "Desc1|Text(65)|null|0", "Desc2|Text(65)|null|0", "Desc3|Text(65)|null|0",
                          "Desc4|Text(65)|null|0", "Taxable|Text(3)|null|0"));
  EXPECT_THAT(Shape("Checklist"),
              ElementsAre("EstimateNumber|INTEGER|null|0", "RecId|INTEGER|null|1", "ChecklistData|Text(255)|null|0"));
  EXPECT_EQ(Shape("Notes").size(), 10U);
  EXPECT_EQ(Shape("Sublets")[1], "SubletNumber|INTEGER|null|2");
}

TEST_F(NewDatabases, StandardHoursHaveTheirOneRow) {
  EXPECT_THAT(PlainRows("select * from StandardHours"), ElementsAre("1|0|16|16|16|16|16|0|10"));
}

TEST_F(NewDatabases, EstimatesAreFoundByDayAndCustomerWithoutReadingAll) {
  EXPECT_THAT(PlainRows("explain query plan SELECT * FROM Estimates WHERE (SchedDate = '2003-09-30')").front(),
              HasSubstr("EstimatesSchedDate"));
  EXPECT_THAT(PlainRows("explain query plan select * from Estimates where CustomerNumber = '7'").front(),
              HasSubstr("EstimatesCustomerNumber"));
}

TEST_F(NewDatabases, TheCreateDateIsTheClocksDay) {
  db.AddEstimateRow(1, Day(2003, 10, 7), 0);
  EXPECT_EQ(PlainValue("select CreateDate from Estimates"), "2003-09-30");
  clock.MoveTo(*ParseLocalTime("2003-10-01T00:00:00"));
  db.AddEstimateRow(2, Day(2003, 10, 7), 0);
  clock.MoveTo(*ParseLocalTime("2004-07-15T23:59:59"));
  db.NewEstimate(3, Day(2003, 10, 7));
  EXPECT_THAT(PlainRows("select CreateDate from Estimates order by EstimateNumber"),
              ElementsAre("2003-09-30", "2003-10-01", "2004-07-15"));
}

TEST_F(NewDatabases, AnotherProgramsRowGetsItsCreateDateToo) {
  Plain("insert into Estimates (EstimateNumber, SchedDate) values (5, '2003-10-07')");
  EXPECT_EQ(PlainValue("select CreateDate = date('now','localtime') from Estimates"), "1");
}

TEST_F(NewDatabases, CountersGoOnAfterADeletion) {
  Plain(
      "insert into Checklist (EstimateNumber, ChecklistData) values (1, 'a'), (1, 'b'); delete from Checklist;"
      "insert into Checklist (EstimateNumber, ChecklistData) values (2, 'c')");
  EXPECT_THAT(PlainRows("select * from Checklist"), ElementsAre("2|3|c"));
}

TEST_F(NewDatabases, KorvelHasItsFourTables) {
  const auto path = PathOf("Korvel.mdb");
  CreateKorvelDatabase(path, clock);
  EXPECT_THAT(test::PlainRows(path, "select name from sqlite_master where type = 'table' order by name"),
              ElementsAre("EmpPRHist", "EmpPRInfo", "FollowUps", "RepairCodes"));
  EXPECT_THAT(Shape(path, "EmpPRInfo"),
              ElementsAre("EmployeeNumber|INTEGER|null|1", "AdditionalFederal|INTEGER|0|0",
                          "AdditionalState|INTEGER|0|0", "AdditionalLocal|INTEGER|0|0", "PrintSSN|BOOLEAN|0|0"));
  EXPECT_THAT(Shape(path, "EmpPRHist"), ElementsAre("EmployeeNumber|INTEGER|null|1", "PayrollDate|Text(10)|null|2",
                                                    "AdditionalFederal|INTEGER|0|0", "AdditionalState|INTEGER|0|0",
                                                    "AdditionalLocal|INTEGER|0|0"));
  EXPECT_THAT(Shape(path, "RepairCodes"), ElementsAre("RepairCode|Text(6)|null|1", "RepairCodeDesc|Text(50)|null|0"));
}

TEST_F(NewDatabases, AnExistingFileIsNeverOverwritten) {
  Put("Other.mdb", "something");
  EXPECT_THAT(ErrorOf([&] { CreateLantosDatabase(PathOf("Other.mdb"), clock); }), HasSubstr("is there already"));
  EXPECT_EQ(BytesOf("Other.mdb"), "something");
}

TEST_F(NewDatabases, InASharedDirectoryIsItsGroupsAndSoIsItsJournal) {
  const ScratchDirectory shared;
  ASSERT_EQ(::chmod(shared.Path().c_str(), 02770), 0);
  const mode_t before = ::umask(077);
  const std::filesystem::path path = shared / "new.mdb";
  CreateLantosDatabase(path, clock);
  struct stat journal = {};
  const std::unique_ptr<Engine> engine = OpenDatabase(path, clock);
  engine->Together([&] {
    engine->Run("UPDATE StandardHours SET MonHours = 1", {});
    EXPECT_EQ(::stat((path.string() + "-journal").c_str(), &journal), 0);
  });
  ::umask(before);
  struct stat database = {};
  ASSERT_EQ(::stat(path.c_str(), &database), 0);
  EXPECT_EQ(database.st_mode & 07777, 0660U);
  EXPECT_EQ(journal.st_mode & 07777, 0660U);
}

TEST_F(NewDatabases, AreNotMadeOrOpenedThroughALinkElsewhere) {
  const ScratchDirectory shop;
  const ScratchDirectory elsewhere;
  CreateLantosDatabase(elsewhere / "real.mdb", clock);
  std::filesystem::create_symlink(elsewhere / "real.mdb", shop / "Lantos.mdb");
  std::filesystem::create_symlink(elsewhere / "none.mdb", shop / "new.mdb");
  EXPECT_THROW(OpenDatabase(shop / "Lantos.mdb", clock), DatabaseError);
  EXPECT_THROW(CreateLantosDatabase(shop / "new.mdb", clock), DatabaseError);
  EXPECT_FALSE(std::filesystem::exists(elsewhere / "none.mdb"));
  std::filesystem::create_symlink("real.mdb", elsewhere / "Lantos.mdb");
  EXPECT_NO_THROW(OpenDatabase(elsewhere / "Lantos.mdb", clock)) << "beside the file itself";
}

TEST_F(NewDatabases, ADirectoryThatIsNotThereLeavesNothing) {
  EXPECT_THROW(CreateLantosDatabase(PathOf("nowhere") / "Lantos.mdb", clock), DatabaseError);
  EXPECT_FALSE(std::filesystem::exists(PathOf("nowhere")));
}

TEST_F(NewDatabases, DatabasesOfDifferentClocksLiveSideBySide) {
  StandingClock other(*ParseLocalTime("2010-01-02T12:00:00"));
  CreateLantosDatabase(PathOf("Second.mdb"), other);
  const std::unique_ptr<Engine> second = OpenDatabase(PathOf("Second.mdb"), other);
  second->Run("insert into Estimates (EstimateNumber) values (1)", {});
  db.AddEstimateRow(1, Day(2003, 10, 7), 0);
  EXPECT_EQ(test::PlainRows(PathOf("Second.mdb"), "select CreateDate from Estimates").front(), "2010-01-02");
  EXPECT_EQ(PlainValue("select CreateDate from Estimates"), "2003-09-30");
}

}  // namespace
}  // namespace lantos::test
