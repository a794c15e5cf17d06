#include "estimatedb/JetImport.h"

#include <gmock/gmock.h>

#include <map>

#include "caretaker/exchange/NobodyAsked.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "frame/RunLog.h"
#include "records/Vehicles.h"
#include "shopmaker/EmptyShop.h"
#include "support/ScratchDirectory.h"

namespace lantos::test {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

const std::string kJetBytes = std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4096, '\7');

// Tables as a dump tells them.
class DumpedTables : public OldTables {
 public:
  std::map<std::string, std::vector<OldRow>> tables;  // the heading first
  std::map<std::string, std::int64_t> counts;         // where they aren't the number of rows
  std::function<void()> whileRead;

  std::vector<std::string> Names() override {
    std::vector<std::string> names;
    for (const auto& [name, rows] : tables) names.push_back(name);
    return names;
  }
  std::int64_t CountOf(const std::string& table) override {
    const auto count = counts.find(table);
    return count == counts.end() ? static_cast<std::int64_t>(tables.at(table).size()) - 1 : count->second;
  }
  void Read(const std::string& table, const std::function<void(OldRow&&)>& take) override {
    if (whileRead) whileRead();
    for (OldRow row : tables.at(table)) take(std::move(row));
  }
};

}  // namespace

// A shop whose Lantos.mdb is a Jet database of two estimates.
class JetImportTest : public ::testing::Test {
 protected:
  JetImportTest() {
    MakeEmptyShop(place / "shop", {}, clock);
    environment.files.SetDataDir((place / "shop").string() + "/");
    place.Put("shop/Lantos.mdb", kJetBytes);
    old.tables = {
        {"Estimates",
         {{"EstimateNumber", "CustomerNumber", "VehicleLink", "SchedDate",  "StartDate", "StopDate", "Status",
           "Mechanic",       "TotalPrice",     "Comments",    "CreateDate", "VehYear",   "VehMake",  "VehModel",
           "VehVIN",         "VehLic",         "VehDate",     "VehMileage", "VehEng",    "VehTrans"},
          Estimate("12", "2003-09-30 00:00:00"),
          Estimate("7", "2003-10-01 00:00:00")}},
        {"Labors",
         {{"EstimateNumber", "LaborNumber", "Description", "LaborHours", "LaborRate", "LaborTotal", "Mechanic"},
          {"7", "2", "Brakes, all\r\nof \"them\" \xC3\xBC", "150", "6500", "9750", "0"},
          {"7", "1", std::nullopt, "50", "6500", "3250", "3"}}},
        {"Parts",
         {{"EstimateNumber", "PartNumber", "PartDesc", "Quantity", "PartPrice", "PartTotal", "PartCost", "PartList"},
          {"7", "0012", "Pad", "2", "1250", "2500", "800", "1500"}}},
        {"Notes",
         {{"EstimateNumber", "NoteNumber", "Desc1", "Desc2", "Desc3", "Desc4", "Desc5", "Desc6", "Desc7", "Desc8"}}},
        {"Sublets", {SubletColumns("SubletNumber")}},
        {"Waste", {SubletColumns("WasteNumber")}},
        {"Checklist", {{"EstimateNumber", "RecId", "ChecklistData"}, {"7", "41", "Oil"}, {"7", "40", "Wipers"}}},
        {"StandardHours",
         {{"RecNum", "SunHours", "MonHours", "TueHours", "WedHours", "ThuHours", "FriHours", "SatHours", "FudgeFactor"},
          {"1", "0", "16", "16.5000", "16", "1.6e+01", "16", "0", "10"}}},
        {"SpecialDays",
         {{"SpecialDate", "SpecialHours", "SpecialDesc"},
          {"2003-12-25 00:00:00", "0", "Christmas"},
          {"2003-12-25 00:00:00", "0", "Christmas"},
          {"2003-01-01 00:00:00", std::nullopt, std::nullopt}}},
    };
  }

  static OldRow SubletColumns(const std::string& number) {
    return {"EstimateNumber", number,  "VendorName", "VendorInvoice", "Cost",   "Price",
            "Desc1",          "Desc2", "Desc3",      "Desc4",         "Taxable"};
  }
  static OldRow Estimate(const std::string& number, const std::string& day) {
    return {number, "5",    "-1",   day,   std::nullopt, std::nullopt, "0", "0", "123.5", "caf\xC3\xA9",
            day,    "1999", "Ford", "F-1", " ",          " ",          " ", "0", "",      "A"};
  }
  OldRow& Columns(const std::string& table) { return old.tables.at(table).front(); }
  OldRow& Row(const std::string& table, std::size_t number = 1) { return old.tables.at(table).at(number); }
  // Of every row.
  void TakeAway(const std::string& table, const std::string& column) {
    const auto found = std::find(Columns(table).begin(), Columns(table).end(), column);
    ASSERT_NE(found, Columns(table).end());
    const auto at = found - Columns(table).begin();
    for (OldRow& row : old.tables.at(table)) row.erase(row.begin() + at);
  }

  JetImport Import(const std::vector<std::string>& leave = {}) {
    return ImportJet(environment, records, old, leave,
                     [&](const MoveProgress& progress) { steps.push_back(progress); });
  }
  // The words of the failure; the shop has to be as it was.
  std::string Refusal(const std::vector<std::string>& leave = {}) {
    const auto before = Names();
    std::string words = "none";
    try {
      Import(leave);
    } catch (const WordedError& error) {
      words = error.Words();
    } catch (const std::exception& error) {
      words = error.what();
    }
    EXPECT_EQ(place.Content("shop/Lantos.mdb"), kJetBytes);
    EXPECT_EQ(Names(), before);
    return words;
  }
  std::vector<std::string> Names() const { return environment.files.List("Lantos*"); }

  // Values joined by "|", nothing as "null".
  std::vector<std::string> RowsOf(const std::string& table) {
    OpenedTables opened = OpenTables(place / "shop/Lantos.mdb", clock);
    std::vector<std::string> lines;
    opened.engine->Together([&] {
      std::vector<std::string> columns;
      for (const StoredColumn& column : opened.tables->ColumnsOf(table)) columns.push_back(column.name);
      const auto rows = opened.tables->Read(table, columns, opened.tables->KeyOf(table));
      for (CellRow row; rows->Next(row);) lines.push_back(LineOf(row));
    });
    return lines;
  }
  static std::string LineOf(const CellRow& row) {
    std::string line;
    for (const Cell& cell : row) {
      if (const auto* text = std::get_if<std::string>(&cell)) line += "'" + *text + "'|";
      if (const auto* whole = std::get_if<std::int64_t>(&cell)) line += std::to_string(*whole) + "|";
      if (const auto* number = std::get_if<double>(&cell)) line += fmt::format("{}|", *number);
      if (cell.index() == 0) line += "null|";
    }
    return line;
  }

  ScratchDirectory place;
  StandingClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
  UserSettings settings{place / "settings"};
  Environment environment{clock, settings};
  NobodyAsked nobody;
  Records records{environment, nobody};
  DumpedTables old;
  std::vector<MoveProgress> steps;
};

TEST_F(JetImportTest, TakesEveryRowAsItIs) {
  const JetImport done = Import();
  EXPECT_THAT(
      RowsOf("Estimates"),
      ElementsAre("7|5|-1|'2003-10-01'|null|null|0|0|123.5|'caf\xC3\xA9'|'2003-10-01'|'1999'|'Ford'|'F-1'|' '|' '|"
                  "' '|'0'|''|'A'|",
                  "12|5|-1|'2003-09-30'|null|null|0|0|123.5|'caf\xC3\xA9'|'2003-09-30'|'1999'|'Ford'|'F-1'|' '|' "
                  "'|' '|'0'|''|'A'|"));
  EXPECT_THAT(RowsOf("Labors"),
              ElementsAre("7|1|null|50|6500|3250|3|", "7|2|'Brakes, all\r\nof \"them\" \xC3\xBC'|150|6500|9750|0|"));
  EXPECT_THAT(RowsOf("Parts"), ElementsAre("7|'0012'|'Pad'|2|1250|2500|800|1500|"));
  EXPECT_THAT(RowsOf("StandardHours"), ElementsAre("1|0|16|16.5|16|16|16|0|10|"));
  EXPECT_THAT(RowsOf("SpecialDays"),
              ElementsAre("'2003-01-01'|null|null|", "'2003-12-25'|0|'Christmas'|", "'2003-12-25'|0|'Christmas'|"));
  EXPECT_FALSE(done.wasUpgraded);
  EXPECT_THAT(done.leftBehind, IsEmpty());
  EXPECT_EQ(done.tables.size(), 9U);
}

TEST_F(JetImportTest, TheJetFileStaysUnderAnotherName) {
  EXPECT_EQ(Import().kept, "Lantos-until-2003-09-30.mdb");
  EXPECT_EQ(place.Content("shop/Lantos-until-2003-09-30.mdb"), kJetBytes);
  EXPECT_THAT(Names(), ElementsAre("Lantos-until-2003-09-30.mdb", "Lantos.mdb"));
}

TEST_F(JetImportTest, TheCounterGoesOnBehindTheHighestNumber) {
  Import();
  OpenDatabase(place / "shop/Lantos.mdb", clock)
      ->Run("insert into Checklist (EstimateNumber, ChecklistData) values (7, 'Lights')", {});
  EXPECT_THAT(RowsOf("Checklist"), ElementsAre("7|40|'Wipers'|", "7|41|'Oil'|", "7|42|'Lights'|"));
}

TEST_F(JetImportTest, NamesInAnyCaseAndColumnsInAnyOrder) {
  old.tables["PARTS"] = {
      {"partnumber", "ESTIMATENUMBER", "PartDesc", "Quantity", "PartPrice", "PartTotal", "PartCost", "PartList"},
      {"A1", "7", "Pad", "2", "1250", "2500", "800", "1500"}};
  old.tables.erase("Parts");
  Import();
  EXPECT_THAT(RowsOf("Parts"), ElementsAre("7|'A1'|'Pad'|2|1250|2500|800|1500|"));
}

TEST_F(JetImportTest, AnOlderShapeIsUpgraded) {
  for (const std::string table : {"Waste", "Checklist"}) old.tables.erase(table);
  for (const std::string column : {"PartCost", "PartList"}) TakeAway("Parts", column);
  for (const std::string column :
       {"VehYear", "VehMake", "VehModel", "VehVIN", "VehLic", "VehDate", "VehMileage", "VehEng", "VehTrans"}) {
    TakeAway("Estimates", column);
  }
  VehicleRecord vehicle;
  vehicle.Put(vehicle::Number, 5);
  vehicle.Put(vehicle::Make, "Toyota");
  vehicle.Put(vehicle::VLink, -1);
  place.Put("shop/TQVEHICL.DAT",
            std::string(reinterpret_cast<const char*>(vehicle.Bytes().data()), vehicle.Bytes().size()));
  Row("Estimates", 2)[2] = "0";
  const JetImport done = Import();
  EXPECT_TRUE(done.wasUpgraded);
  EXPECT_THAT(RowsOf("Parts"), ElementsAre("7|'0012'|'Pad'|2|1250|2500|0|0|"));
  EXPECT_THAT(RowsOf("Checklist"), IsEmpty());
  EXPECT_THAT(RowsOf("Waste"), IsEmpty());
  EXPECT_THAT(RowsOf("Estimates").front(), HasSubstr("'Toyota'"));
  EXPECT_THAT(RowsOf("Estimates").back(), HasSubstr("|' '|' '|' '|' '|' '|' '|' '|' '|' '|"));
}

TEST_F(JetImportTest, TheProgramFindsNothingToUpgradeAfterwards) {
  Import();
  const std::string before = place.Content("shop/Lantos.mdb");
  EstimateDatabase database(environment, records);
  Connect(database, environment);
  UpgradeDatabase(database, environment, records);
  EXPECT_EQ(place.Content("shop/Lantos.mdb"), before);
}

TEST_F(JetImportTest, HalfOfALaterShapeIsRefused) {
  TakeAway("Estimates", "VehMake");
  EXPECT_THAT(Refusal(), HasSubstr("\"Estimates\" lacks the column \"VehMake\", which every program made"));
}

TEST_F(JetImportTest, AColumnOfAllProgramsMustBeThere) {
  TakeAway("Labors", "LaborHours");
  EXPECT_THAT(Refusal(), HasSubstr("\"Labors\" lacks the column \"LaborHours\""));
}

TEST_F(JetImportTest, ATableOfAllProgramsMustBeThere) {
  old.tables.erase("Sublets");
  EXPECT_THAT(Refusal(), HasSubstr("There is no table \"Sublets\" in the old database"));
}

TEST_F(JetImportTest, UnknownColumnsEndItUnlessTheyAreLeft) {
  for (OldRow& row : old.tables.at("Estimates")) row.emplace_back("x");
  Columns("Estimates").back() = "Extra";
  EXPECT_THAT(Refusal(),
              HasSubstr("\"Extra\", which isn't the program's. Nothing was changed.\n\nWhat is in it would stay "
                        "behind in the old file. If nobody needs it, say so: --leave \"Estimates.Extra\"."));
  EXPECT_THAT(Refusal({"Labors.Extra"}), HasSubstr("Extra"));
  EXPECT_THAT(Import({"estimates.extra"}).leftBehind, ElementsAre("Estimates.Extra"));
  EXPECT_EQ(RowsOf("Estimates").size(), 2U);
}

TEST_F(JetImportTest, UnknownTablesStayBehindAndAreNamed) {
  old.tables["Mileage"] = {{"A"}, {"1"}};
  EXPECT_THAT(Import().leftBehind, ElementsAre("Mileage"));
}

TEST_F(JetImportTest, AColumnTwiceIsRefused) {
  Columns("Parts")[2] = "PartNumber";
  EXPECT_THAT(Refusal(), HasSubstr("\"Parts\" has two columns \"PartNumber\""));
}

TEST_F(JetImportTest, ValuesOfAnotherTypeAreRefusedWithTheirRow) {
  Row("Labors", 1)[3] = "many";
  EXPECT_THAT(Refusal(),
              HasSubstr("In the table \"Labors\" the row with \"EstimateNumber\" \"7\", \"LaborNumber\" \"2\" "
                        "can't be taken over: its \"LaborHours\" holds \"many\", which isn't a number"));
  Row("Labors", 1)[3] = "99999999999";
  EXPECT_THAT(Refusal(), HasSubstr("too large a number"));
  Row("Labors", 1)[3] = "1.5";
  EXPECT_THAT(Refusal(), HasSubstr("isn't a whole number"));
}

TEST_F(JetImportTest, AFractionIsTheNumberThatWasOnceTyped) {
  Row("Estimates", 1)[8] = "97.09999999999999";
  Import();
  EXPECT_THAT(RowsOf("Estimates").back(), HasSubstr("|97.1|"));
}

TEST_F(JetImportTest, ADateThatIsNoneIsRefusedRatherThanLost) {
  Row("Estimates", 1)[3] = "09/30/03 00:00:00";
  EXPECT_THAT(Refusal(), HasSubstr("its \"SchedDate\" holds \"09/30/03 00:00:00\", which is no date"));
}

TEST_F(JetImportTest, ATextThatIsNoneIsRefused) {
  Row("Estimates", 1)[9] = "caf\xE9";
  EXPECT_THAT(Refusal(), HasSubstr("its \"Comments\" has bytes in it that are no text"));
}

TEST_F(JetImportTest, TwoRowsOfOneKeyAreRefused) {
  old.tables["Parts"].push_back(Row("Parts"));
  EXPECT_THAT(
      Refusal(),
      HasSubstr("In the table \"Parts\" there are two rows with \"EstimateNumber\" 7, \"PartNumber\" \"0012\""));
}

TEST_F(JetImportTest, ARowWithoutItsKeyIsRefused) {
  Row("Estimates", 2)[0] = std::nullopt;
  EXPECT_THAT(Refusal(),
              HasSubstr("the row with \"EstimateNumber\" nothing can't be taken over: its \"EstimateNumber\" is "
                        "empty"));
}

TEST_F(JetImportTest, LongTextsAreKeptWholeAndTold) {
  const std::string text = std::string(38, 'x') + "\xC3\xBC";
  Row("Parts")[2] = text;
  const JetImport done = Import();
  ASSERT_EQ(done.longTexts.size(), 1U);
  EXPECT_EQ(done.longTexts[0].column, "Parts.PartDesc");
  EXPECT_EQ(done.longTexts[0].count, 1);
  EXPECT_THAT(RowsOf("Parts").front(), HasSubstr(text));
}

TEST_F(JetImportTest, ATextOfJustTheWidthIsNoLongOne) {
  Row("Parts")[2] = std::string(37, 'x') + "\xC3\xBC";
  EXPECT_THAT(Import().longTexts, IsEmpty());
}

TEST_F(JetImportTest, FewerRowsThanTheDatabaseCountsAreRefused) {
  old.counts["Labors"] = 3;
  EXPECT_THAT(Refusal(), HasSubstr("\"Labors\" has 3 rows by its own count, and 2 could be read"));
}

TEST_F(JetImportTest, ATableOfWhichNothingIsToldIsRefused) {
  old.counts["Notes"] = 0;
  old.tables["Notes"].clear();
  EXPECT_THAT(Refusal(), HasSubstr("Of the table \"Notes\" nothing was told"));
}

TEST_F(JetImportTest, AFileThatChangesMeanwhileIsRefused) {
  old.whileRead = [&] { std::filesystem::last_write_time(place / "shop/Lantos.mdb", {}); };
  EXPECT_THAT(Refusal(), HasSubstr("was changed while it was read"));
}

TEST_F(JetImportTest, WantsTheDirectoryToItself) {
  place.Put("shop/Lantos.ldb", "");
  EXPECT_THAT(Refusal(), HasSubstr("the earlier program has the database open"));
  std::filesystem::remove(place / "shop/Lantos.ldb");
  FileIO files(clock);
  files.SetDataDir(environment.files.DataDir());
  RunLog log(files);
  ASSERT_TRUE(log.Open());
  EXPECT_THAT(Refusal(), HasSubstr("Somebody works with Lantos in this directory"));
}

TEST_F(JetImportTest, OnlyAJetDatabaseIsTakenOver) {
  Import();
  const std::string ours = place.Content("shop/Lantos.mdb");
  EXPECT_THROW(Import(), DatabaseError);
  EXPECT_EQ(place.Content("shop/Lantos.mdb"), ours);
  EXPECT_THAT(Names(), ElementsAre("Lantos-until-2003-09-30.mdb", "Lantos.mdb"));
}

TEST_F(JetImportTest, WhatABrokenOffImportLeftIsNothing) {
  place.Put("shop/Lantos-import.tmp", "half of it");
  std::filesystem::create_hard_link(place / "shop/Lantos.mdb", place / "shop/Lantos-until-2003-09-29.mdb");
  Import();
  EXPECT_THAT(Names(), ElementsAre("Lantos-until-2003-09-30.mdb", "Lantos.mdb"));
}

TEST_F(JetImportTest, TheNewFileIsAsOpenToOthersAsTheOldOne) {
  namespace fs = std::filesystem;
  fs::permissions(place / "shop/Lantos.mdb", fs::perms(0464));
  Import();
  EXPECT_EQ(fs::status(place / "shop/Lantos.mdb").permissions(), fs::perms(0664));
}

}  // namespace lantos::test
