#include <gmock/gmock.h>

#include <array>

#include "contents/StatementsBench.h"
#include "contents/extras/frmEstExtras.h"
#include "contents/extras/frmWOExtra.h"
#include "contents/labor/frmRepairCode.h"
#include "contents/notes/frmEstNotes.h"

// Whatever a person types is a value. No text becomes a part of a statement.
namespace lantos {
namespace {

using test::StatementsBench;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::array kHostile = {"'",
                                 "''",
                                 "'''",
                                 "'; drop table Labors; --",
                                 "'); delete from Parts; --",
                                 "' or '1' = '1",
                                 "\"",
                                 "\"\"",
                                 "`x`",
                                 "?",
                                 "?1",
                                 ":a",
                                 "@a",
                                 "$1",
                                 "%",
                                 "_",
                                 "*",
                                 "\\",
                                 "\\'",
                                 "--",
                                 "/* x",
                                 "*/",
                                 ";",
                                 ")",
                                 "(",
                                 "null",
                                 "x'00'",
                                 "[Labors]",
                                 "#01/01/2003#",
                                 "{d '2003-01-01'}",
                                 "1e5",
                                 "0012",
                                 "\xE9\x80\xFF",
                                 "\x01",
                                 "a\r\nb",
                                 "end; commit;"};

// The number of rows of a table, and how many of them have the text in the column.
struct Counts {
  std::size_t rows = 0;
  std::size_t ours = 0;
};
Counts CountIn(DataEnvironment& data, const std::string& table, const std::string& column, std::string_view text) {
  Counts counts;
  for (Recordset rows = data.Connection().Run("select * from " + table, {}); !rows.Eof(); rows.MoveNext()) {
    ++counts.rows;
    if (rows.Text(column) == text) ++counts.ours;
  }
  return counts;
}

de::Extra ExtraOf(const std::string& text) { return {text, text, 1, 2, text, text, text, text, text}; }

struct HostileBench : StatementsBench {
  de& data = database.lantosData;
  de2& korvel = database.korvelData;

  // The table has the one row with the text in each of these columns.
  void Expect(DataEnvironment& of, const std::string& table, const std::vector<std::string>& columns,
              const std::string& text) {
    const std::set<std::string> own = strangers;  // the test's own look
    for (const std::string& column : columns) {
      const Counts counts = CountIn(of, table, column, text);
      EXPECT_EQ(counts.rows, 1U) << table << " with " << text;
      EXPECT_EQ(counts.ours, 1U) << table << "." << column << " with " << text;
    }
    strangers = own;
  }
  void Clear(DataEnvironment& of, const std::string& table) {
    const std::set<std::string> own = strangers;
    of.Connection().Run("delete from " + table, {});
    strangers = own;
  }
};

void StoreLines(HostileBench& bench, const std::string& text) {
  de& data = bench.data;
  data.AddLabor(1001, 1, text, 1, 2, 3, 4);
  bench.Expect(data, "Labors", {"Description"}, text);
  data.AddPartRow(1001, {text, text, 1, 2, 3, 4, 5});
  bench.Expect(data, "Parts", {"PartNumber", "PartDesc"}, text);
  data.UpdatePartRow(1001, text, {"", text, 1, 2, 3, 4, 5});
  bench.Expect(data, "Parts", {"PartDesc"}, text);
  data.UpdatePartRow(1001, text, {"", text + text, 1, 2, 3, 4, 5});
  bench.Expect(data, "Parts", {"PartDesc"}, text + text);
  data.DeletePart(1001, text);
  EXPECT_EQ(bench.Ask("select count(*) from Parts"), "0") << text;
  data.AddNote(1001, 1, std::vector<std::string>(8, text));
  bench.Expect(data, "Notes", {"Desc1", "Desc2", "Desc3", "Desc4", "Desc5", "Desc6", "Desc7", "Desc8"}, text);
  const std::vector<std::string> extra = {"VendorName", "VendorInvoice", "Desc1", "Desc2", "Desc3", "Desc4", "Taxable"};
  data.AddSublet(1001, 1, ExtraOf(text));
  bench.Expect(data, "Sublets", extra, text);
  data.AddWaste(1001, 1, ExtraOf(text));
  bench.Expect(data, "Waste", extra, text);
  data.AddChecklistRow(1001, text);
  bench.Expect(data, "Checklist", {"ChecklistData"}, text);
}

void StoreEstimatesDaysAndCodes(HostileBench& bench, const std::string& text) {
  de& data = bench.data;
  data.SetComments(text, 1001);
  bench.Expect(data, "Estimates", {"Comments"}, text);
  data.SetVehicleNew(7, {text, text, text, text, text, text, text, text, text}, 1001);
  bench.Expect(data, "Estimates",
               {"VehYear", "VehMake", "VehModel", "VehVIN", "VehLic", "VehDate", "VehMileage", "VehEng", "VehTrans"},
               text);
  data.SaveSpecialDay(37894, 0, text);
  bench.Expect(data, "SpecialDays", {"SpecialDesc"}, text);
  EXPECT_THROW(data.SpecialDaysTable(text), DatabaseError) << "no date: " << text;
  bench.korvel.AddRepairCode(text, text);
  bench.Expect(bench.korvel, "RepairCodes", {"RepairCode", "RepairCodeDesc"}, text);
  bench.korvel.DeletePRHist(1, text);
}

void StoreSurcharges(HostileBench& bench, const std::string& text) {
  for (const char* table : {"Sublets", "Waste"}) bench.Clear(bench.data, table);
  bench.data.AddSubletSurcharge(1001, {100, text, text});
  bench.Expect(bench.data, "Sublets", {"Desc1", "Taxable"}, text);
  bench.data.AddWasteSurcharge(1001, {100, text, text});
  bench.Expect(bench.data, "Waste", {"Desc1", "Taxable"}, text);
}

TEST(HostileTexts, OfLinesAreStoredAsTheyStandByStatementsOfTheTable) {
  for (const std::string text : kHostile) {
    HostileBench bench;
    StoreLines(bench, text);
    EXPECT_THAT(bench.strangers, UnorderedElementsAre("select count(*) from Parts"));
  }
}

TEST(HostileTexts, OfEstimatesDaysAndCodesAreStoredAsTheyStand) {
  for (const std::string text : kHostile) {
    HostileBench bench;
    StoreEstimatesDaysAndCodes(bench, text);
    EXPECT_THAT(bench.strangers, IsEmpty());
    EXPECT_THAT(bench.edits, UnorderedElementsAre("SpecialDays", "SpecialDate", "SpecialHours", "SpecialDesc"));
  }
}

// A command that comes to the tables with a place for a text is to be tried above. A text that must be a date is
// refused before it comes to the database.
TEST(HostileTexts, AreTriedInEveryPlaceForATextOfTheTables) {
  const std::string text = "'; drop table Labors; --";
  HostileBench bench;
  StoreLines(bench, text);
  StoreEstimatesDaysAndCodes(bench, text);
  StoreSurcharges(bench, text);
  for (const auto commands : {kLantosCommands, kKorvelCommands}) {
    for (const Command& command : commands) {
      for (std::size_t place = 0; place < command.parameters.count; ++place) {
        if (command.parameters[place] != ParameterKind::Text) continue;
        EXPECT_TRUE(bench.texts.contains({std::string(command.statement), place, text}))
            << command.name << ", value " << place + 1;
      }
    }
  }
}

// The one text of the shop's that goes into a line without passing a screen of the estimate.
TEST(HostileTexts, OfTheSurchargeAreStoredAsTheyStand) {
  for (const std::string text : kHostile) {
    for (const char isSublet : {'Y', 'N'}) {
      HostileBench bench;
      bench.records.system.SysRec.Put(sysrec::surcharge_is_sublet, isSublet);
      bench.records.system.SysRec.Put(sysrec::surcharge_description, text);
      WoLaborLine line;
      line.Total = 1000;
      bench.contents.labor.AddLaborLine(line);
      bench.contents.labor.AddLaborLine(line);
      bench.Expect(bench.data, isSublet == 'Y' ? "Sublets" : "Waste", {"Desc1"}, text);
      EXPECT_THAT(bench.strangers, IsEmpty()) << text;
    }
  }
}

TEST(HostileTexts, ThatArePartsNumbersAreRefusedInWordsOrStored) {
  for (const std::string text : kHostile) {
    HostileBench bench;
    PartLine part;
    part.partNumber = "X" + text;
    part.quantity = 1;
    if (text.find('\'') != std::string::npos) {
      EXPECT_THROW(bench.contents.parts.AddPartLine(part, PartLines::Choosing::ItsRow), WordedError);
      EXPECT_EQ(bench.contents.lines.parts.size(), 0U);
    } else {
      bench.contents.parts.AddPartLine(part, PartLines::Choosing::ItsRow);
      bench.contents.parts.AddPartLine(part, PartLines::Choosing::ItsRow);
      bench.Expect(bench.data, "Parts", {"PartNumber"}, Trim(part.partNumber));
    }
    EXPECT_THAT(bench.strangers, IsEmpty()) << text;
  }
}

TEST(HostileTexts, TypedOnTheScreensComeToTheDatabaseAsTheyStand) {
  for (const std::string text : {"'", "''", "'; drop table Labors; --", "\"?:a$1"}) {
    HostileBench bench;
    bench.desktop.WillUse([&](ui::Form& form) {
      test::Type(dynamic_cast<frmWOExtra&>(form).Vendor, text);
      test::Press(form, "F10");
    });
    frmEstExtras waste(bench.bench, kWasteExtras);
    waste.LoadForm();
    waste.cmdAdd.DoClick();
    bench.Expect(bench.data, "Waste", {"VendorName"}, text);
    bench.desktop.WillUse([&](ui::Form& form) {
      test::Type(dynamic_cast<frmNotes&>(form).txtDesc, text);
      test::Press(form, "F10");
    });
    frmEstNotes notes(bench.bench);
    notes.LoadForm();
    notes.cmdAdd.DoClick();
    bench.Expect(bench.data, "Notes", {"Desc1"}, text);
    frmRepairCode code(bench.shop, bench.korvel);
    code.LoadForm();
    test::Type(code.txtRepairCode, "A'1");
    test::Type(code.txtRepairCodeDesc, text);
    test::Press(code, "F10");
    bench.Expect(bench.korvel, "RepairCodes", {"RepairCodeDesc"}, text);
    EXPECT_THAT(bench.strangers, IsEmpty()) << text;
  }
}

}  // namespace
}  // namespace lantos
