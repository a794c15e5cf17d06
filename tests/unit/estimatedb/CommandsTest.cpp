#include "EitherDatabase.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr DaySerial kTuesday = 37894;  // 30 September 2003

class Commands : public EitherDatabase {
 protected:
  static de::Extra Towing() { return {"Ace Towing", "INV-77", 4500, 6000, "Towed in", "from Main St", "", "", "Yes"}; }
  static std::vector<std::string> EightLines(const std::string& first) {
    return {first, "2", "3", "4", "5", "6", "7", "8"};
  }
};

ON_EITHER_DATABASE(Commands);

TEST_P(Commands, NewEstimateAddsARowOfItsDay) {
  db.NewEstimate(12, kTuesday);
  EXPECT_EQ(PlainValue("select EstimateNumber, SchedDate, CustomerNumber, Status from Estimates"), "12|2003-09-30|0|0");
}

TEST_P(Commands, SetCommandsChangeTheirColumnOfTheirEstimateAlone) {
  db.NewEstimate(1, kTuesday);
  db.NewEstimate(2, kTuesday);
  db.SetCustomer(77, 1);
  db.SetVehicle(397, 1);
  db.SetComments("waits", 1);
  db.SetStatus(3, 1);
  EXPECT_THAT(PlainRows("select CustomerNumber, VehicleLink, Comments, Status from Estimates order by EstimateNumber"),
              ElementsAre("77|397|waits|3", "0|0|null|0"));
}

TEST_P(Commands, SetVehicleNewWritesTheSnapshotWithBlanksForWhatIsEmpty) {
  db.NewEstimate(1, kTuesday);
  de::VehicleSnapshot vehicle;
  vehicle.VehYear = "1999";
  vehicle.VehMake = "Ford";
  db.SetVehicleNew(794, vehicle, 1);
  EXPECT_EQ(PlainValue("select VehicleLink, VehYear, VehMake, VehModel, VehVIN, VehLic, VehDate, VehMileage, VehEng, "
                       "VehTrans from Estimates"),
            "794|1999|Ford| | | | | | | ");
}

TEST_P(Commands, EstimatesAreFoundByDay) {
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

TEST_P(Commands, EstimateByNumberAndByCustomer) {
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

TEST_P(Commands, TheHighestEstimateIsTheHighestOfThoseUpToANumber) {
  EXPECT_EQ(db.HighestEstimate(999999).Long("Highest"), 0) << "of none";
  for (const std::int32_t number : {7, 41, 1000000}) db.NewEstimate(number, kTuesday);
  EXPECT_EQ(db.HighestEstimate(999999).Long("Highest"), 41);
  EXPECT_EQ(db.HighestEstimate(7).Long("Highest"), 7);
}

TEST_P(Commands, LaborLinesAreAddedReadInOrderSummedAndDeleted) {
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

TEST_P(Commands, AWeekAtOnceIsItsDaysOneBehindTheOther) {
  constexpr DaySerial kSunday = kTuesday - 2;
  for (const std::int32_t number : {8, 5}) db.NewEstimate(number, kTuesday);
  db.NewEstimate(6, kTuesday + 1);
  db.NewEstimate(3, kSunday);
  db.NewEstimate(4, kSunday + 6);
  db.NewEstimate(9, kSunday + 7);
  db.NewEstimate(10, kSunday - 1);
  Recordset& week = db.EstimatesOfWeek(kSunday);
  EXPECT_EQ(week.Count(), 5U);
  std::array<std::string, 7> days;
  for (; !week.Eof(); week.MoveNext()) {
    days.at(static_cast<std::size_t>(week.Date("SchedDate") - kSunday)) += " " + week.Text("EstimateNumber");
  }
  for (DaySerial day = 0; day < 7; ++day) {
    std::string alone;
    Recordset& rows = db.GetEstimatesByDate(kSunday + day);
    for (; !rows.Eof(); rows.MoveNext()) alone += " " + rows.Text("EstimateNumber");
    EXPECT_EQ(days.at(static_cast<std::size_t>(day)), alone) << day;
  }
}

TEST_P(Commands, TotalsOfAWeekAreThoseOfItsEstimatesThatHaveLabor) {
  for (const std::int32_t number : {5, 6, 8}) db.NewEstimate(number, kTuesday);
  db.NewEstimate(9, kTuesday + 5);
  db.AddLabor(5, 1, "First", 100, 6500, 6500, 3);
  db.AddLabor(5, 2, "Second", -50, 6500, -3250, 0);
  db.AddLabor(8, 1, "Other", 25, 4, 1, 0);
  db.AddLabor(9, 1, "Next week's", 900, 1, 9, 0);
  db.AddLabor(10, 1, "Of no estimate", 900, 1, 9, 0);
  EXPECT_THAT(Dump(db.TotalsOfWeek(kTuesday - 2)), ElementsAre("5|50|3250", "8|25|1"));
}

TEST_P(Commands, LaborOfADayIsThatOfItsEstimatesEachInItsOrder) {
  for (const std::int32_t number : {5, 8}) db.NewEstimate(number, kTuesday);
  db.NewEstimate(9, kTuesday + 1);
  for (const std::int32_t number : {8, 5, 9, 10}) {
    for (const std::int32_t line : {2, 3, 1}) {
      db.AddLabor(number, line, "Of " + std::to_string(number), 10 * line, 1, number, 0);
    }
  }
  std::map<std::string, std::vector<std::string>> lines;
  for (Recordset& labor = db.LaborOfDay(kTuesday); !labor.Eof(); labor.MoveNext()) {
    lines[labor.Text("EstimateNumber")].push_back(labor.Text("LaborNumber") + " " + labor.Text("Description"));
  }
  EXPECT_EQ(lines.size(), 2U);
  EXPECT_THAT(lines["5"], ElementsAre("1 Of 5", "2 Of 5", "3 Of 5"));
  EXPECT_THAT(lines["8"], ElementsAre("1 Of 8", "2 Of 8", "3 Of 8"));
}

TEST_P(Commands, TotalsOfAnEstimateWithoutLinesAreNullAndReadAsZero) {
  Recordset& totals = db.TotalsForEstimate(5);
  ASSERT_FALSE(totals.Eof());
  EXPECT_TRUE(totals.IsNull("TotalHours"));
  EXPECT_EQ(totals.Long("TotalLabor"), 0);
}

TEST_P(Commands, ALineNumberThatIsTakenIsTheDatabasesError) {
  db.AddLabor(5, 1, "First", 0, 0, 0, 0);
  EXPECT_THAT(ErrorOf([&] { db.AddLabor(5, 1, "O'Neil", 7, 0, 0, 0); }),
              testing::AllOf(HasSubstr(Either("UNIQUE", "unique")), HasSubstr("insert into Labors"),
                             HasSubstr("5, 1, 'O''Neil', 7")));
}

TEST_P(Commands, PartsAreFoundByEstimateAndDeletedByStockNumber) {
  Plain(
      "insert into Parts values (5, '0012', 'Oil filter', 2, 599, 1198, 300, 799), (5, '12', 'Other', 1, 1, 1, 1, 1),"
      "(50, '0012', 'Not this', 1, 1, 1, 1, 1)");
  EXPECT_EQ(db.PartsTable(5).Count(), 2U);
  db.DeletePart(5, "0012");
  Recordset& rows = db.PartsTable(5);
  EXPECT_THAT(Dump(rows), ElementsAre("5|12|Other|1|1|1|1|1"));
}

TEST_P(Commands, NotesAreAddedReadInOrderAndDeleted) {
  db.AddNote(5, 10, EightLines("later"));
  db.AddNote(5, 9, EightLines("earlier"));
  Recordset& rows = db.NotesForEstimate(5);
  EXPECT_THAT(Dump(rows), ElementsAre("5|9|earlier|2|3|4|5|6|7|8", "5|10|later|2|3|4|5|6|7|8"));
  db.DeleteNote(5, 9);
  EXPECT_EQ(db.NotesForEstimate(5).Long("NoteNumber"), 10);
  EXPECT_THROW(db.AddNote(5, 11, {"one line"}), DatabaseError);
}

TEST_P(Commands, SubletsAreAddedReadFoundAndDeleted) {
  db.AddSublet(5, 2, Towing());
  db.AddSublet(5, 1, {"SURCHARGE", "", 0, 1500, "", "", "", "", "No"});
  EXPECT_EQ(db.SubletsForEstimate(5).Text("VendorName"), "SURCHARGE");
  Recordset& row = db.GetSublet(5, 2);
  EXPECT_THAT(Dump(row), ElementsAre("5|2|Ace Towing|INV-77|4500|6000|Towed in|from Main St|||Yes"));
  db.DeleteSublet(5, 2);
  EXPECT_TRUE(db.GetSublet(5, 2).Eof());
}

TEST_P(Commands, WasteIsAddedReadFoundAndDeleted) {
  db.AddWaste(5, 2, Towing());
  db.AddWaste(5, 1, Towing());
  EXPECT_EQ(db.WasteForEstimate(5).Long("WasteNumber"), 1);
  Recordset& row = db.GetWaste(5, 2);
  EXPECT_THAT(Dump(row), ElementsAre("5|2|Ace Towing|INV-77|4500|6000|Towed in|from Main St|||Yes"));
  db.DeleteWaste(5, 2);
  EXPECT_TRUE(db.GetWaste(5, 2).Eof());
}

TEST_P(Commands, TheChecklistIsReadInOrderWholeAndDeletedByEstimate) {
  Plain("insert into Checklist (EstimateNumber, ChecklistData) values (5, 'wipers'), (6, 'tyres'), (5, 'brakes')");
  Recordset& rows = db.ChecklistForEstimate(5);
  EXPECT_THAT(Dump(rows), ElementsAre("5|1|wipers", "5|3|brakes"));
  EXPECT_EQ(db.ChecklistTable().Count(), 3U);
  db.DeleteChecklist(5);
  EXPECT_EQ(db.ChecklistTable().Count(), 1U);
}

TEST_P(Commands, StandardHoursAreReadAndChanged) {
  EXPECT_EQ(db.GetStdHours().Number("MonHours"), 16.0);
  db.UpdateStdHours({0, 1, 2, 3, 4, 5, 6}, 25);
  EXPECT_EQ(PlainValue("select * from StandardHours"), "1|0|1|2|3|4|5|6|25");
  Plain("delete from StandardHours");
  EXPECT_THAT(ErrorOf([&] { db.UpdateStdHours({0, 1, 2, 3, 4, 5, 6}, 25); }), HasSubstr("StandardHours"));
  EXPECT_THROW(db.GetStdHours().Number("MonHours"), DatabaseError);
}

TEST_P(Commands, SpecialDaysAreSavedFoundListedAndDeleted) {
  db.SaveSpecialDay(kTuesday, 0, "Inventory");
  db.SaveSpecialDay(kTuesday - 1, 8, "Half crew");
  db.SaveSpecialDay(kTuesday, 4, "Morning only");
  EXPECT_EQ(db.SpecialDaysByDate(kTuesday).Text("SpecialDesc"), "Morning only");
  EXPECT_TRUE(db.SpecialDaysByDate(kTuesday + 1).Eof());
  EXPECT_THAT(PlainRows("select SpecialDate, SpecialHours, SpecialDesc from SpecialDays order by SpecialDate"),
              ElementsAre("2003-09-29|8|Half crew", "2003-09-30|4|Morning only"));
  db.DeleteSpecialDay(kTuesday);
  db.DeleteSpecialDay(kTuesday);
  EXPECT_EQ(PlainValue("select count(*) from SpecialDays"), "1");
}

TEST_P(Commands, SpecialDaysFromATextAreComparedAsDates) {
  for (const DaySerial day : {Day(2002, 12, 31), Day(2003, 2, 1), Day(2003, 10, 1)}) db.SaveSpecialDay(day, 0, "x");
  EXPECT_EQ(db.SpecialDaysTable("02/01/2003").Count(), 2U);
  Recordset& all = db.SpecialDaysTable("11/02/1956");
  ASSERT_EQ(all.Count(), 3U);
  EXPECT_EQ(all.Date("SpecialDate"), Day(2002, 12, 31)) << "in the order of the days";
  EXPECT_THAT(ErrorOf([&] { db.SpecialDaysTable("soon"); }), HasSubstr("soon"));
}

TEST_P(Commands, OfTwoRowsOfOneSpecialDayTheFirstIsTheOneThatIsChanged) {
  Plain("insert into SpecialDays values ('2003-09-30', 1, 'first'), ('2003-09-30', 2, 'second')");
  db.SaveSpecialDay(kTuesday, 5, "changed");
  EXPECT_THAT(PlainRows("select SpecialHours, SpecialDesc from SpecialDays order by SpecialDesc"),
              ElementsAre("5|changed", "2|second"));
  db.DeleteSpecialDay(kTuesday);
  EXPECT_THAT(PlainRows("select SpecialDesc from SpecialDays"), ElementsAre("second"));
}

TEST_P(Commands, TheDesignTimeTextsOfTheRunnersWorkToo) {
  db.NewEstimate(1, kTuesday);
  Plain("insert into Estimates (EstimateNumber) values (2)");
  EXPECT_EQ(db.SelectQuery().Long("RecCount"), 2);
  db.UpdateQuery();
  EXPECT_THAT(PlainRows("select SchedDate from Estimates order by EstimateNumber"),
              ElementsAre("2003-09-30", "2003-01-01"));
}

TEST_P(Commands, APartRowIsChangedUnderItsStoredNumber) {
  db.AddPartRow(5, {"0012", "Oil filter", 2, 599, 1198, 300, 799});
  db.AddPartRow(5, {"12", "Other", 1, 1, 1, 1, 1});
  db.UpdatePartRow(5, "0012", {"", "Air filter", 3, 100, 300, 50, 120});
  EXPECT_THAT(PlainRows("select * from Parts order by PartNumber"),
              ElementsAre("5|0012|Air filter|3|100|300|50|120", "5|12|Other|1|1|1|1|1"));
}

TEST_P(Commands, TheSurchargeIsLineOneOfItsTableAndFoundByItsVendor) {
  db.AddSublet(5, 2, Towing());
  db.AddSubletSurcharge(5, {250, "MILLER'S ''SUPPLIES''", "Yes"});
  db.AddWasteSurcharge(5, {-10, "SHOP SUPPLIES", "No"});
  EXPECT_EQ(PlainValue("select * from Sublets where SubletNumber = 1"),
            "5|1|SURCHARGE||250|250|MILLER'S ''SUPPLIES''||||Yes");
  EXPECT_EQ(PlainValue("select * from Waste"), "5|1|SURCHARGE||-10|-10|SHOP SUPPLIES||||No");
  EXPECT_EQ(db.GetSubletSurcharge(5).Long("SubletNumber"), 1);
  EXPECT_EQ(db.GetWasteSurcharge(5).Long("WasteNumber"), 1);
  EXPECT_TRUE(db.GetWasteSurcharge(6).Eof());
  EXPECT_THAT(ErrorOf([&] { db.AddSubletSurcharge(5, {}); }), HasSubstr(Either("UNIQUE", "unique")));
}

TEST_P(Commands, TheSurchargesAmountIsChangedUnderTheNumberItIsFoundBy) {
  Plain(
      "insert into Sublets (EstimateNumber, SubletNumber, VendorName, Cost, Price) values (5, 3, 'SURCHARGE', 1, 2),"
      "(5, 4, 'Ace', 3, 4);"
      "insert into Waste (EstimateNumber, WasteNumber, VendorName, Cost, Price) values (5, 3, 'SURCHARGE', 1, 2)");
  db.SetSubletSurcharge(700, 5, db.GetSubletSurcharge(5).Long("SubletNumber"));
  db.SetWasteSurcharge(0, 5, 3);
  EXPECT_THAT(PlainRows("select Cost, Price from Sublets order by SubletNumber"), ElementsAre("700|700", "3|4"));
  EXPECT_EQ(PlainValue("select Cost, Price from Waste"), "0|0");
}

TEST_P(Commands, TechHoursSumByTechnicianAndDayWithoutTheThreeStatuses) {
  for (int status = 0; status <= 9; ++status) {
    db.AddEstimateRow(status + 1, kTuesday, status);
    db.AddLabor(status + 1, 1, "x", 100, 0, 0, 4);
  }
  db.AddLabor(1, 2, "x", 25, 0, 0, 8);
  Recordset& rows = db.TechHours();
  EXPECT_THAT(Dump(rows), ElementsAre("4|09/30/2003|700", "8|09/30/2003|25"));
  EXPECT_EQ((rows.MoveFirst(), rows.Date("SchedDate")), kTuesday);
}

TEST_P(Commands, ClonesCopyTheirColumnsAndNoMore) {
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

TEST_P(Commands, ARecordsetCommandRunWhileItsRecordsetIsOpenClosesItFirst) {
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

TEST_P(Commands, DifferentCommandsKeepTheirRecordsetsOpenSideBySide) {
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

TEST_P(Commands, AStatementWithoutRowsOpensNothing) {
  db.NewEstimate(1, kTuesday);
  EXPECT_FALSE(db.Rs("NewEstimate").IsOpen());
  EXPECT_FALSE(db.Run("UpdateQuery").IsOpen());
}

}  // namespace
}  // namespace lantos::test
