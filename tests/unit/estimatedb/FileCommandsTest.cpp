#include "DatabaseFixture.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr DaySerial kTuesday = 37894;  // 30 September 2003

class CommandsOfFiles : public DatabaseTest {
 protected:
  static std::vector<std::string> EightLines(const std::string& first) {
    return {first, "2", "3", "4", "5", "6", "7", "8"};
  }
};

TEST_F(CommandsOfFiles, TheTablesHaveEveryCommandWithAsManyKindsAsPlaceholders) {
  EXPECT_EQ(kLantosCommands.size(), 86U);
  EXPECT_EQ(kKorvelCommands.size(), 8U);
  for (const auto commands : {kLantosCommands, kKorvelCommands}) {
    for (const Command& command : commands) {
      const auto places = static_cast<std::size_t>(std::count(command.statement.begin(), command.statement.end(), '?'));
      EXPECT_EQ(places, command.parameters.count) << command.name;
    }
  }
}

TEST_F(CommandsOfFiles, NumbersLieInTheFileAsNumbers) {
  db.NewEstimate(5, kTuesday);
  db.SetComments("waits", 5);
  db.AddNote(5, 1, EightLines("first"));
  db.AddSubletSurcharge(5, {250, "SHOP SUPPLIES", "No"});
  EXPECT_EQ(PlainValue("select typeof(EstimateNumber) || typeof(NoteNumber) from Notes"), "integerinteger");
  EXPECT_EQ(PlainValue("select typeof(EstimateNumber) || typeof(SubletNumber) || typeof(Cost) from Sublets"),
            "integerintegerinteger");
}

TEST_F(CommandsOfFiles, KorvelsCommandsOpenTheirTables) {
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

TEST_F(CommandsOfFiles, ARowOfThePayHistoryGoesByItsEmployeeAndItsDate) {
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

TEST_F(CommandsOfFiles, TheRowOfAnEmployeesPayIsAddedIfMissingAndKeepsWhatWasNotChanged) {
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

TEST_F(CommandsOfFiles, RepairCodesAreAddedAsTypedAndReadInOrder) {
  CreateKorvelDatabase(PathOf("Korvel.mdb"), clock);
  de2& korvel = database.korvelData;
  korvel.AddRepairCode("BRAKE", "Driver's side");
  korvel.AddRepairCode("0012", "''Oil''");
  Recordset& rows = korvel.RepairCodes();
  EXPECT_THAT(Dump(rows), ElementsAre("0012|''Oil''", "BRAKE|Driver's side"));
  EXPECT_THAT(ErrorOf([&] { korvel.AddRepairCode("BRAKE", "again"); }), HasSubstr("UNIQUE"));
}

TEST_F(CommandsOfFiles, ACommandThatDoesNotExistIsAnError) {
  EXPECT_THAT(ErrorOf([&] { db.Rs("DropEverything"); }), HasSubstr("DropEverything"));
  EXPECT_THAT(ErrorOf([&] { db.Run("drop table Estimates"); }), HasSubstr("no command"));
}

}  // namespace
}  // namespace lantos::test
