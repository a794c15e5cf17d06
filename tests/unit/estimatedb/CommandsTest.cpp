#include "DatabaseFixture.h"
#include "records/inventory/Inventory.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr DaySerial kTuesday = 37894;  // 30 September 2003

class Commands : public DatabaseTest {
 protected:
  static de::Extra Towing() { return {"Ace Towing", "INV-77", 4500, 6000, "Towed in", "from Main St", "", "", "Yes"}; }
  static std::vector<std::string> EightLines(const std::string& first) {
    return {first, "2", "3", "4", "5", "6", "7", "8"};
  }
};

TEST_F(Commands, TheTablesHaveEveryCommandWithAsManyKindsAsPlaceholders) {
  EXPECT_EQ(kLantosCommands.size(), 83U);
  EXPECT_EQ(kKorvelCommands.size(), 8U);
  for (const auto commands : {kLantosCommands, kKorvelCommands}) {
    for (const Command& command : commands) {
      const auto places = static_cast<std::size_t>(std::count(command.statement.begin(), command.statement.end(), '?'));
      EXPECT_EQ(places, command.parameters.count) << command.name;
    }
  }
}

TEST_F(Commands, NewEstimateAddsARowOfItsDay) {
  db.NewEstimate(12, kTuesday);
  EXPECT_EQ(PlainValue("select EstimateNumber, SchedDate, CustomerNumber, Status from Estimates"), "12|2003-09-30|0|0");
}

TEST_F(Commands, SetCommandsChangeTheirColumnOfTheirEstimateAlone) {
  db.NewEstimate(1, kTuesday);
  db.NewEstimate(2, kTuesday);
  db.SetCustomer(77, 1);
  db.SetVehicle(397, 1);
  db.SetComments("waits", 1);
  db.SetStatus(3, 1);
  EXPECT_THAT(PlainRows("select CustomerNumber, VehicleLink, Comments, Status from Estimates order by EstimateNumber"),
              ElementsAre("77|397|waits|3", "0|0|null|0"));
}

TEST_F(Commands, SetVehicleNewWritesTheSnapshotWithBlanksForWhatIsEmpty) {
  db.NewEstimate(1, kTuesday);
  de::VehicleSnapshot vehicle;
  vehicle.VehYear = "1999";
  vehicle.VehMake = "Ford";
  db.SetVehicleNew(794, vehicle, 1);
  EXPECT_EQ(PlainValue("select VehicleLink, VehYear, VehMake, VehModel, VehVIN, VehLic, VehDate, VehMileage, VehEng, "
                       "VehTrans from Estimates"),
            "794|1999|Ford| | | | | | | ");
}

TEST_F(Commands, EstimatesAreFoundByDay) {
  db.NewEstimate(1, kTuesday);
  db.NewEstimate(2, kTuesday + 1);
  db.NewEstimate(3, kTuesday);
  Recordset& rows = db.GetEstimatesByDate(kTuesday);
  ASSERT_EQ(rows.Count(), 2U);
  EXPECT_EQ(rows.Date("SchedDate"), kTuesday);
  EXPECT_EQ(&rows, &db.Rs("GetEstimatesByDate"));
  EXPECT_EQ(db.EstimatesTable(kTuesday + 1).Long("EstimateNumber"), 2);
  EXPECT_TRUE(db.GetEstimatesByDate(kTuesday + 2).Eof());
}

TEST_F(Commands, EstimateByNumberAndByCustomer) {
  db.NewEstimate(1, kTuesday);
  db.NewEstimate(2, kTuesday - 40);
  db.SetCustomer(9, 1);
  db.SetCustomer(9, 2);
  EXPECT_EQ(db.EstimateByNumber(2).Date("SchedDate"), kTuesday - 40);
  EXPECT_TRUE(db.EstimateByNumber(3).Eof());
  Recordset& rows = db.EstimatesByCustomer(9);
  ASSERT_EQ(rows.Count(), 2U);
  EXPECT_EQ(rows.Long("EstimateNumber"), 2) << "in the order of the days";
}

TEST_F(Commands, LaborLinesAreAddedReadInOrderSummedAndDeleted) {
  db.AddLabor(5, 2, "Second\r\nline", 150, 6500, 9750, 3);
  db.AddLabor(5, 1, "First", -50, 6500, -3250, 0);
  db.AddLabor(6, 1, "Other", 900, 1, 9, 0);
  Recordset& lines = db.LaborForEstimate(5);
  EXPECT_THAT(Dump(lines), ElementsAre("5|1|First|-50|6500|-3250|0", "5|2|Second\r\nline|150|6500|9750|3"));
  Recordset& totals = db.TotalsForEstimate(5);
  EXPECT_EQ(totals.Long("TotalHours"), 100);
  EXPECT_EQ(totals.Long("TotalLabor"), 6500);
  db.DeleteLabor(5, 2);
  EXPECT_EQ(db.LaborForEstimate(5).Count(), 1U);
}

TEST_F(Commands, TotalsOfAnEstimateWithoutLinesAreNullAndReadAsZero) {
  Recordset& totals = db.TotalsForEstimate(5);
  ASSERT_FALSE(totals.Eof());
  EXPECT_TRUE(totals.IsNull("TotalHours"));
  EXPECT_EQ(totals.Long("TotalLabor"), 0);
}

TEST_F(Commands, ALineNumberThatIsTakenIsTheDatabasesError) {
  db.AddLabor(5, 1, "First", 0, 0, 0, 0);
  EXPECT_THAT(ErrorOf([&] { db.AddLabor(5, 1, "O'Neil", 7, 0, 0, 0); }),
              testing::AllOf(HasSubstr("UNIQUE"), HasSubstr("insert into Labors"), HasSubstr("5, 1, 'O''Neil', 7")));
}

TEST_F(Commands, PartsAreFoundByEstimateAndDeletedByStockNumber) {
  Plain(
      "insert into Parts values (5, '0012', 'Oil filter', 2, 599, 1198, 300, 799), (5, '12', 'Other', 1, 1, 1, 1, 1),"
      "(50, '0012', 'Not this', 1, 1, 1, 1, 1)");
  EXPECT_EQ(db.PartsTable(5).Count(), 2U);
  db.DeletePart(5, "0012");
  Recordset& rows = db.PartsTable(5);
  EXPECT_THAT(Dump(rows), ElementsAre("5|12|Other|1|1|1|1|1"));
}

TEST_F(Commands, NotesAreAddedReadInOrderAndDeleted) {
  db.AddNote(5, 10, EightLines("later"));
  db.AddNote(5, 9, EightLines("earlier"));
  Recordset& rows = db.NotesForEstimate(5);
  EXPECT_THAT(Dump(rows), ElementsAre("5|9|earlier|2|3|4|5|6|7|8", "5|10|later|2|3|4|5|6|7|8"));
  db.DeleteNote(5, 9);
  EXPECT_EQ(db.NotesForEstimate(5).Long("NoteNumber"), 10);
  EXPECT_THROW(db.AddNote(5, 11, {"one line"}), DatabaseError);
}

TEST_F(Commands, SubletsAreAddedReadFoundAndDeleted) {
  db.AddSublet(5, 2, Towing());
  db.AddSublet(5, 1, {"SURCHARGE", "", 0, 1500, "", "", "", "", "No"});
  EXPECT_EQ(db.SubletsForEstimate(5).Text("VendorName"), "SURCHARGE");
  Recordset& row = db.GetSublet(5, 2);
  EXPECT_THAT(Dump(row), ElementsAre("5|2|Ace Towing|INV-77|4500|6000|Towed in|from Main St|||Yes"));
  db.DeleteSublet(5, 2);
  EXPECT_TRUE(db.GetSublet(5, 2).Eof());
}

TEST_F(Commands, WasteIsAddedReadFoundAndDeleted) {
  db.AddWaste(5, 2, Towing());
  db.AddWaste(5, 1, Towing());
  EXPECT_EQ(db.WasteForEstimate(5).Long("WasteNumber"), 1);
  Recordset& row = db.GetWaste(5, 2);
  EXPECT_THAT(Dump(row), ElementsAre("5|2|Ace Towing|INV-77|4500|6000|Towed in|from Main St|||Yes"));
  db.DeleteWaste(5, 2);
  EXPECT_TRUE(db.GetWaste(5, 2).Eof());
}

TEST_F(Commands, TheChecklistIsReadInOrderWholeAndDeletedByEstimate) {
  Plain("insert into Checklist (EstimateNumber, ChecklistData) values (5, 'wipers'), (6, 'tyres'), (5, 'brakes')");
  Recordset& rows = db.ChecklistForEstimate(5);
  EXPECT_THAT(Dump(rows), ElementsAre("5|1|wipers", "5|3|brakes"));
  EXPECT_EQ(db.ChecklistTable().Count(), 3U);
  db.DeleteChecklist(5);
  EXPECT_EQ(db.ChecklistTable().Count(), 1U);
}

TEST_F(Commands, StandardHoursAreReadAndChanged) {
  EXPECT_EQ(db.GetStdHours().Number("MonHours"), 16.0);
  db.UpdateStdHours({0, 1, 2, 3, 4, 5, 6}, 25);
  EXPECT_EQ(PlainValue("select * from StandardHours"), "1|0|1|2|3|4|5|6|25");
  Plain("delete from StandardHours");
  EXPECT_THAT(ErrorOf([&] { db.UpdateStdHours({0, 1, 2, 3, 4, 5, 6}, 25); }), HasSubstr("StandardHours"));
  EXPECT_THROW(db.GetStdHours().Number("MonHours"), DatabaseError);
}

TEST_F(Commands, SpecialDaysAreSavedFoundListedAndDeleted) {
  db.SaveSpecialDay(kTuesday, 0, "Inventory");
  db.SaveSpecialDay(kTuesday - 1, 8, "Half crew");
  db.SaveSpecialDay(kTuesday, 4, "Morning only");
  EXPECT_EQ(db.SpecialDaysByDate(kTuesday).Text("SpecialDesc"), "Morning only");
  EXPECT_TRUE(db.SpecialDaysByDate(kTuesday + 1).Eof());
  EXPECT_THAT(PlainRows("select * from SpecialDays order by SpecialDate"),
              ElementsAre("2003-09-29|8|Half crew", "2003-09-30|4|Morning only"));
  db.DeleteSpecialDay(kTuesday);
  db.DeleteSpecialDay(kTuesday);
  EXPECT_EQ(PlainValue("select count(*) from SpecialDays"), "1");
}

TEST_F(Commands, SpecialDaysFromATextAreComparedAsDates) {
  for (const DaySerial day : {Day(2002, 12, 31), Day(2003, 2, 1), Day(2003, 10, 1)}) db.SaveSpecialDay(day, 0, "x");
  EXPECT_EQ(db.SpecialDaysTable("02/01/2003").Count(), 2U);
  Recordset& all = db.SpecialDaysTable("11/02/1956");
  ASSERT_EQ(all.Count(), 3U);
  EXPECT_EQ(all.Date("SpecialDate"), Day(2002, 12, 31)) << "in the order of the days";
  EXPECT_THAT(ErrorOf([&] { db.SpecialDaysTable("soon"); }), HasSubstr("soon"));
}

TEST_F(Commands, OfTwoRowsOfOneSpecialDayTheFirstIsTheOneThatIsChanged) {
  Plain("insert into SpecialDays values ('2003-09-30', 1, 'first'), ('2003-09-30', 2, 'second')");
  db.SaveSpecialDay(kTuesday, 5, "changed");
  EXPECT_THAT(PlainRows("select SpecialHours, SpecialDesc from SpecialDays"), ElementsAre("5|changed", "2|second"));
  db.DeleteSpecialDay(kTuesday);
  EXPECT_THAT(PlainRows("select SpecialDesc from SpecialDays"), ElementsAre("second"));
}

TEST_F(Commands, TheDesignTimeTextsOfTheRunnersWorkToo) {
  db.NewEstimate(1, kTuesday);
  Plain("insert into Estimates (EstimateNumber) values (2)");
  EXPECT_EQ(db.SelectQuery().Long("RecCount"), 2);
  db.UpdateQuery();
  EXPECT_THAT(PlainRows("select SchedDate from Estimates order by EstimateNumber"),
              ElementsAre("2003-09-30", "2003-01-01"));
}

TEST_F(Commands, NumbersLieInTheFileAsNumbers) {
  db.NewEstimate(5, kTuesday);
  db.SetComments("waits", 5);
  db.AddNote(5, 1, EightLines("first"));
  db.AddSubletSurcharge(5, {250, "SHOP SUPPLIES", "No"});
  EXPECT_EQ(PlainValue("select typeof(EstimateNumber) || typeof(NoteNumber) from Notes"), "integerinteger");
  EXPECT_EQ(PlainValue("select typeof(EstimateNumber) || typeof(SubletNumber) || typeof(Cost) from Sublets"),
            "integerintegerinteger");
}

TEST_F(Commands, APartRowIsChangedUnderItsStoredNumber) {
  db.AddPartRow(5, {"0012", "Oil filter", 2, 599, 1198, 300, 799});
  db.AddPartRow(5, {"12", "Other", 1, 1, 1, 1, 1});
  db.UpdatePartRow(5, "0012", {"", "Air filter", 3, 100, 300, 50, 120});
  EXPECT_THAT(PlainRows("select * from Parts"),
              ElementsAre("5|0012|Air filter|3|100|300|50|120", "5|12|Other|1|1|1|1|1"));
}

TEST_F(Commands, TheSurchargeIsLineOneOfItsTableAndFoundByItsVendor) {
  db.AddSublet(5, 2, Towing());
  db.AddSubletSurcharge(5, {250, "MILLER'S ''SUPPLIES''", "Yes"});
  db.AddWasteSurcharge(5, {-10, "SHOP SUPPLIES", "No"});
  EXPECT_EQ(PlainValue("select * from Sublets where SubletNumber = 1"),
            "5|1|SURCHARGE||250|250|MILLER'S ''SUPPLIES''||||Yes");
  EXPECT_EQ(PlainValue("select * from Waste"), "5|1|SURCHARGE||-10|-10|SHOP SUPPLIES||||No");
  EXPECT_EQ(db.GetSubletSurcharge(5).Long("SubletNumber"), 1);
  EXPECT_EQ(db.GetWasteSurcharge(5).Long("WasteNumber"), 1);
  EXPECT_TRUE(db.GetWasteSurcharge(6).Eof());
  EXPECT_THAT(ErrorOf([&] { db.AddSubletSurcharge(5, {}); }), HasSubstr("UNIQUE"));
}

TEST_F(Commands, TheSurchargesAmountIsChangedUnderTheNumberItIsFoundBy) {
  Plain(
      "insert into Sublets (EstimateNumber, SubletNumber, VendorName, Cost, Price) values (5, 3, 'SURCHARGE', 1, 2),"
      "(5, 4, 'Ace', 3, 4);"
      "insert into Waste (EstimateNumber, WasteNumber, VendorName, Cost, Price) values (5, 3, 'SURCHARGE', 1, 2)");
  db.SetSubletSurcharge(700, 5, db.GetSubletSurcharge(5).Long("SubletNumber"));
  db.SetWasteSurcharge(0, 5, 3);
  EXPECT_THAT(PlainRows("select Cost, Price from Sublets order by SubletNumber"), ElementsAre("700|700", "3|4"));
  EXPECT_EQ(PlainValue("select Cost, Price from Waste"), "0|0");
}

TEST_F(Commands, TechHoursSumByTechnicianAndDayWithoutTheThreeStatuses) {
  for (int status = 0; status <= 9; ++status) {
    db.AddEstimateRow(status + 1, kTuesday, status);
    db.AddLabor(status + 1, 1, "x", 100, 0, 0, 4);
  }
  db.AddLabor(1, 2, "x", 25, 0, 0, 8);
  Recordset& rows = db.TechHours();
  EXPECT_THAT(Dump(rows), ElementsAre("4|09/30/2003|700", "8|09/30/2003|25"));
  EXPECT_EQ((rows.MoveFirst(), rows.Date("SchedDate")), kTuesday);
}

TEST_F(Commands, ClonesCopyTheirColumnsAndNoMore) {
  db.AddEstimateRow(1, kTuesday, 3);
  db.AddEstimateRow(2, kTuesday + 7, 0);
  Plain(
      "update Estimates set CustomerNumber = 77, VehicleLink = 397, Mechanic = 4, TotalPrice = 12.5, Comments = 'c',"
      "VehYear = 'y', VehMake = 'm', VehModel = 'o', VehVIN = 'v', VehLic = 'l', VehDate = 'd', VehMileage = '9',"
      "VehEng = 'e', VehTrans = 't', StartDate = '2003-01-01', CreateDate = '2001-01-01' where EstimateNumber = 1");
  db.CloneEstimate(1, 2);
  EXPECT_EQ(PlainValue("select * from Estimates where EstimateNumber = 2"),
            "2|77|397|2003-10-07|null|null|0|4|12.5|c|2003-09-30|y|m|o|v|l|d|9|null|null");
  EXPECT_EQ(PlainValue("select SchedDate, Status, VehEng from Estimates where EstimateNumber = 1"), "2003-09-30|3|e");
}

TEST_F(Commands, KorvelsCommandsOpenTheirTables) {
  CreateKorvelDatabase(PathOf("Korvel.mdb"), clock);
  test::Plain(PathOf("Korvel.mdb"),
              "insert into EmpPRInfo values (1, 5, 6, 7, 1), (2, 8, 9, 10, 0);"
              "insert into EmpPRHist values (2, '09/26/2003', 1, 2, 3);"
              "insert into FollowUps (CustomerNumber, Description) values (77, 'Brakes')");
  de2& korvel = database.korvelData;
  EXPECT_EQ(korvel.SelectQuery().Long("rowCount"), 2);
  EXPECT_EQ(korvel.EmpPRInfo().Long("AdditionalState"), 6);
  EXPECT_EQ(korvel.EmpPRHist().Text("PayrollDate"), "09/26/2003");
  EXPECT_EQ(korvel.FollowUps().Text("Description"), "Brakes");
  korvel.UpdateQuery();
  Recordset& rows = korvel.EmpPRInfo();
  EXPECT_THAT(Dump(rows), ElementsAre("1|0|0|0|1", "2|8|9|10|0"));
}

TEST_F(Commands, ARowOfThePayHistoryGoesByItsEmployeeAndItsDate) {
  CreateKorvelDatabase(PathOf("Korvel.mdb"), clock);
  test::Plain(PathOf("Korvel.mdb"),
              "insert into EmpPRHist values (2, '09/26/2003', 1, 2, 3), (2, '09/19/2003', 4, 5, 6), "
              "(3, '09/26/2003', 7, 8, 9)");
  de2& korvel = database.korvelData;
  korvel.DeletePRHist(2, "09/26/2003");
  korvel.DeletePRHist(4, "09/26/2003");
  Recordset& rows = korvel.EmpPRHist();
  EXPECT_THAT(Dump(rows), ElementsAre("2|09/19/2003|4|5|6", "3|09/26/2003|7|8|9"));
}

TEST_F(Commands, TheRowOfAnEmployeesPayIsAddedIfMissingAndKeepsWhatWasNotChanged) {
  CreateKorvelDatabase(PathOf("Korvel.mdb"), clock);
  test::Plain(PathOf("Korvel.mdb"), "insert into EmpPRInfo values (1, 5, 6, 7, 1)");
  de2& korvel = database.korvelData;
  EXPECT_EQ(korvel.PRInfoOf(1).AdditionalLocal, 7);
  EXPECT_TRUE(korvel.PRInfoOf(1).PrintSSN);
  EXPECT_EQ(korvel.PRInfoOf(2).AdditionalFederal, 0);
  korvel.SavePRInfo(1, {.AdditionalFederal = {}, .AdditionalState = 60, .AdditionalLocal = {}, .PrintSSN = {}});
  korvel.SavePRInfo(2, {.AdditionalFederal = 8, .AdditionalState = {}, .AdditionalLocal = {}, .PrintSSN = true});
  korvel.SavePRInfo(2, {.AdditionalFederal = {}, .AdditionalState = {}, .AdditionalLocal = 3, .PrintSSN = false});
  korvel.SavePRInfo(3, {});
  korvel.SavePRInfo(3, {});
  EXPECT_THAT(Dump(korvel.EmpPRInfo()), ElementsAre("1|5|60|7|1", "2|8|0|3|0", "3|0|0|0|0"));
}

TEST_F(Commands, RepairCodesAreAddedAsTypedAndReadInOrder) {
  CreateKorvelDatabase(PathOf("Korvel.mdb"), clock);
  de2& korvel = database.korvelData;
  korvel.AddRepairCode("BRAKE", "Driver's side");
  korvel.AddRepairCode("0012", "''Oil''");
  Recordset& rows = korvel.RepairCodes();
  EXPECT_THAT(Dump(rows), ElementsAre("0012|''Oil''", "BRAKE|Driver's side"));
  EXPECT_THAT(ErrorOf([&] { korvel.AddRepairCode("BRAKE", "again"); }), HasSubstr("UNIQUE"));
}

TEST_F(Commands, ARecordsetCommandRunWhileItsRecordsetIsOpenClosesItFirst) {
  db.NewEstimate(1, kTuesday);
  db.NewEstimate(2, kTuesday);
  Recordset& rows = db.GetEstimatesByDate(kTuesday);
  rows.MoveNext();
  db.GetEstimatesByDate(kTuesday);
  EXPECT_EQ(rows.Long("EstimateNumber"), 1) << "the place is lost";
  Plain("alter table Estimates rename to Elsewhere");
  EXPECT_THROW(db.GetEstimatesByDate(kTuesday), DatabaseError);
  EXPECT_FALSE(rows.IsOpen());
}

TEST_F(Commands, DifferentCommandsKeepTheirRecordsetsOpenSideBySide) {
  db.NewEstimate(1, kTuesday);
  db.NewEstimate(2, kTuesday);
  Recordset& days = db.GetEstimatesByDate(kTuesday);
  std::vector<std::int32_t> met;
  for (; !days.Eof(); days.MoveNext()) {
    db.TotalsForEstimate(days.Long("EstimateNumber"));
    db.LaborForEstimate(days.Long("EstimateNumber"));
    met.push_back(days.Long("EstimateNumber"));
  }
  EXPECT_THAT(met, ElementsAre(1, 2));
  db.CloseRecordsets();
  EXPECT_FALSE(days.IsOpen());
}

TEST_F(Commands, AStatementWithoutRowsOpensNothing) {
  db.NewEstimate(1, kTuesday);
  EXPECT_FALSE(db.Rs("NewEstimate").IsOpen());
  EXPECT_FALSE(db.Run("UpdateQuery").IsOpen());
}

TEST_F(Commands, ACommandThatDoesNotExistIsAnError) {
  EXPECT_THAT(ErrorOf([&] { db.Rs("DropEverything"); }), HasSubstr("DropEverything"));
  EXPECT_THAT(ErrorOf([&] { db.Run("drop table Estimates"); }), HasSubstr("no command"));
}

}  // namespace
}  // namespace lantos::test
