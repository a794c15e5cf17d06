#include <gmock/gmock.h>

#include "contents/extras/frmEstExtras.h"
#include "contents/extras/frmWOExtra.h"
#include "contents/labor/LaborBench.h"
#include "contents/notes/frmEstNotes.h"
#include "contents/notes/frmNotes.h"

// A line is stored, and the list that is to be read again for the lines of other workstations can't be read.
namespace lantos {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

struct UnreadBench : test::LaborBench {
  // Another workstation has taken numbers that no list here has seen.
  UnreadBench() {
    Store(1, 100, 6500, "OIL\t\t\t\t\t\t\t");
    contents.labor.LoadLaborList();
    desktop.failuresExpected = true;
    Watch([this](std::string_view statement) { Take(ToLower(statement)); });
  }
  // The first reading of the table behind a line that was stored.
  void Take(const std::string& statement) {
    const bool isOfTable = statement.find(table) != std::string::npos;
    if (table.empty() || !isOfTable) return;
    if (statement.starts_with("insert")) isStored = true;
    if (!isStored || !statement.starts_with("select")) return;
    table.clear();
    throw DatabaseError("Statement: " + statement, DatabaseErrorKind::Locked, 5, "The database is locked.");
  }
  void WillBeRefused(const std::string& name) {
    table = name;
    isStored = false;
  }
  static std::vector<std::string> RowsOf(const ui::ListBox& list) {
    std::vector<std::string> rows;
    for (const ui::ListRow& row : list.Rows()) rows.push_back(row.text);
    return rows;
  }

  std::string table;
  bool isStored = false;
};

const char* const kUnread =
    " is stored, but the list could not be read again.\rLines that other workstations have added may be missing from "
    "it.";

TEST(StoredLines, OfLaborAreShownWhereTheListCantBeReadAgain) {
  UnreadBench bench;
  bench.Store(4, 100, 6500, "OF ANOTHER WORKSTATION\t\t\t\t\t\t\t");
  bench.WillType("2", "wash");
  bench.WillBeRefused("labors");
  EXPECT_THROW(bench.contents.labor.Add(), WordedError);
  EXPECT_THAT(UnreadBench::RowsOf(bench.board.listLabor), Contains(HasSubstr("WASH")));
  EXPECT_THAT(UnreadBench::RowsOf(bench.board.listLabor), Contains(HasSubstr("OIL")));
  EXPECT_EQ(bench.Ask("select count(*) from Labors where EstimateNumber = 1001"), "3");
}

TEST(StoredLines, OfNotesAreShownWhereTheListCantBeReadAgain) {
  UnreadBench bench;
  frmEstNotes form(bench.bench);
  form.Show();
  bench.database.lantosData.AddNote(1001, 4, {"THEIRS", "", "", "", "", "", "", ""});
  bench.desktop.WillUse([](ui::Form& editor) {
    test::Type(dynamic_cast<frmNotes&>(editor).txtDesc, "Ours");
    test::Press(editor, "F10");
  });
  bench.WillBeRefused("notes");
  form.cmdAdd.DoClick();
  EXPECT_THAT(bench.desktop.failures, ElementsAre(HasSubstr(std::string("The note \"Ours\"") + kUnread)));
  EXPECT_THAT(UnreadBench::RowsOf(form.listNotes), ElementsAre("--> Ours"));
}

TEST(StoredLines, OfSubletsAndWasteAreShownWhereTheListCantBeReadAgain) {
  UnreadBench bench;
  frmEstExtras form(bench.bench, kWasteExtras);
  form.Show();
  bench.database.lantosData.AddWaste(1001, 4, {"THEIRS", "", 0, 100, "", "", "", "", "No"});
  bench.desktop.WillUse([](ui::Form& editor) {
    test::Type(dynamic_cast<frmWOExtra&>(editor).Vendor, "OURS");
    test::Press(editor, "F10");
  });
  bench.WillBeRefused("waste");
  form.cmdAdd.DoClick();
  EXPECT_THAT(bench.desktop.failures, ElementsAre(HasSubstr(std::string("\"OURS\"") + kUnread)));
  EXPECT_THAT(UnreadBench::RowsOf(form.listLines), Contains(HasSubstr("OURS")));
}

}  // namespace
}  // namespace lantos
