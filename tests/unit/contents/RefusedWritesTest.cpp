#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <iterator>
#include <limits>
#include <optional>

#include "contents/extras/frmEstExtras.h"
#include "contents/extras/frmSubList.h"
#include "contents/extras/frmWOExtra.h"
#include "contents/labor/LaborBench.h"
#include "contents/notes/EstimateChecklist.h"
#include "contents/notes/frmEstNotes.h"
#include "contents/notes/frmWOChklst.h"
#include "contents/parts/frmWOPart.h"
#include "records/CheckList.h"

// Each editor of an estimate, with each statement of its save refused once: what was typed stays on the screen until it
// is stored, whole and once.
namespace lantos {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using ui::Answer;

struct EditorsBench : test::LaborBench {
  EditorsBench() {
    directory.Put("CHECKLST.TXT", "[Engine]\r\nOil\r\n");
    records.checkList.LoadChecklistFile();
    SystemRecord& system = records.system.SysRec;
    system.Put(sysrec::labor_surcharge_percent, 100000);
    system.Put(sysrec::parts_surcharge_percent, 100000);
    system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
    de& data = database.lantosData;
    Store(1, 100, 6500, "OIL\t\t\t\t\t\t\t");
    data.AddPartRow(1001, {"P-1", "PART", 1, 1000, 1000, 500, 1000});
    data.AddNote(1001, 1, {"NOTE", "", "", "", "", "", "", ""});
    data.AddSublet(1001, 1, {"GLASS", "", 0, 100, "", "", "", "", "No"});
    data.AddWaste(1001, 1, {"SURCHARGE", "", 750, 750, "SHOP SUPPLIES", "", "", "", "No"});
    data.AddWaste(1001, 2, {"OIL", "", 0, 100, "", "", "", "", "No"});
    contents.labor.LoadLaborList();
    contents.parts.LoadPartList();
    board.listLabor.DoSelect(0);
    board.listParts.SelectRow(0);
    Watch([this](std::string_view) { Take(); });
  }
  // The statement of this index, from now on, is refused.
  void RefuseAt(std::size_t index, DatabaseErrorKind kind) {
    statements = 0;
    refuseAt = index;
    refusal = kind;
  }
  void Take() {
    if (statements++ != refuseAt) return;
    refuseAt.reset();
    throw DatabaseError("Statement: insert into Labors values (?)", refusal, 19, std::string(WordsOf(refusal)));
  }
  // All rows of the estimate, table by table.
  std::vector<std::string> Stored() {
    std::vector<std::string> all;
    const std::unique_ptr<Engine> other = OpenDatabase(directory / "Lantos.mdb", clock);
    for (const char* table : {"Estimates", "Labors", "Parts", "Notes", "Sublets", "Waste", "Checklist"}) {
      for (Recordset rows = other->Run(std::string("select * from ") + table, {}); !rows.Eof(); rows.MoveNext()) {
        std::string line = table;
        for (const std::string& column : rows.Columns()) line += "|" + rows.Text(column);
        all.push_back(line);
      }
    }
    return all;
  }
  // What the two lists of the board and the sum of its hours say.
  std::vector<std::string> Seen() const {
    std::vector<std::string> all = {std::to_string(board.scheduledHours)};
    for (const ui::ListRow& row : board.listLabor.Rows()) all.push_back(row.text);
    for (const ui::ListRow& row : board.listParts.Rows()) all.push_back(row.text);
    return all;
  }

  std::size_t statements = 0;
  std::optional<std::size_t> refuseAt;
  DatabaseErrorKind refusal = DatabaseErrorKind::Other;
};

enum class Button { Add, Change };

template <class Screen>
void Use(Screen& screen, Button button) {
  screen.LoadForm();
  (button == Button::Add ? screen.cmdAdd : screen.cmdChange).DoClick();
}

void Extras(EditorsBench& bench, const ExtrasTable& table, Button button) {
  frmEstExtras screen(bench.bench, table);
  screen.LoadForm();
  if (&table == &kWasteExtras) screen.listLines.DoSelect(screen.listLines.ListCount() - 1);
  Use(screen, button);
}

void TypePart(ui::Form& form) {
  auto& part = dynamic_cast<frmWOPart&>(form);
  if (!part.PartNumber.Locked()) test::Type(part.PartNumber, "new");
  test::Type(part.Description, "ours");
  test::Type(part.QuantityUsed, "3");
  for (ui::TextBox* box : {&part.CostPrice, &part.SalePrice, &part.ListPrice}) test::Type(*box, "7");
}

enum class ComesUp { AtOnce, BehindAList };

struct Editor {
  const char* name;
  void (*open)(EditorsBench&);
  void (*type)(ui::Form&);
  ComesUp comesUp = ComesUp::AtOnce;

  // What the person does in it when it is opened next.
  void WillBeUsed(EditorsBench& bench, test::TestDesktop::FormScript script) const {
    if (comesUp == ComesUp::BehindAList) {
      bench.desktop.WillUse([](ui::Form& list) {
        dynamic_cast<frmSubList&>(list).POSubletList.DoSelect(0);
        test::Press(list, "F10");
      });
    }
    bench.desktop.WillUse(std::move(script));
  }
};

void TypeLabor(ui::Form& form) {
  test::Type(dynamic_cast<frmLabor&>(form).Hours, "2");
  test::Type(dynamic_cast<frmLabor&>(form).txtDesc, "ours");
}
void TypeExtra(ui::Form& form) { test::Type(dynamic_cast<frmWOExtra&>(form).Vendor, "ours"); }
void TypeNote(ui::Form& form) { test::Type(dynamic_cast<frmNotes&>(form).txtDesc, "ours"); }

constexpr std::array<Editor, 11> kEditors = {{
    {"labor, new", [](EditorsBench& bench) { bench.contents.labor.Add(); }, TypeLabor},
    {"labor, changed", [](EditorsBench& bench) { bench.contents.labor.Change(); }, TypeLabor},
    {"part, new", [](EditorsBench& bench) { bench.contents.parts.AddNonStock(); }, TypePart},
    {"part, changed", [](EditorsBench& bench) { bench.contents.parts.Change(); }, TypePart},
    {"sublet, new", [](EditorsBench& bench) { Extras(bench, kSubletExtras, Button::Add); }, TypeExtra,
     ComesUp::BehindAList},
    {"sublet, changed", [](EditorsBench& bench) { Extras(bench, kSubletExtras, Button::Change); }, TypeExtra},
    {"waste, new", [](EditorsBench& bench) { Extras(bench, kWasteExtras, Button::Add); }, TypeExtra},
    {"waste, changed", [](EditorsBench& bench) { Extras(bench, kWasteExtras, Button::Change); }, TypeExtra},
    {"note, new",
     [](EditorsBench& bench) {
       frmEstNotes screen(bench.bench);
       Use(screen, Button::Add);
     },
     TypeNote},
    {"note, changed",
     [](EditorsBench& bench) {
       frmEstNotes screen(bench.bench);
       Use(screen, Button::Change);
     },
     TypeNote},
    {"checklist", [](EditorsBench& bench) { EstimateChecklist(bench.bench); },
     [](ui::Form& form) { dynamic_cast<frmWOChklst&>(form).List1.DoCheck(0, true); }},
}};

struct SavedAtOnce {
  std::size_t statements = 0;
  std::vector<std::string> stored;
  std::vector<std::string> seen;
};
SavedAtOnce SaveAtOnce(const Editor& editor) {
  EditorsBench bench;
  SavedAtOnce saved;
  editor.WillBeUsed(bench, [&](ui::Form& form) {
    editor.type(form);
    bench.statements = 0;
    test::Press(form, "F10");
    saved.statements = bench.statements;
  });
  editor.open(bench);
  saved.stored = bench.Stored();
  saved.seen = bench.Seen();
  return saved;
}

constexpr std::array kKinds = {DatabaseErrorKind::Locked,  DatabaseErrorKind::Full,        DatabaseErrorKind::ReadOnly,
                               DatabaseErrorKind::Damaged, DatabaseErrorKind::Unreachable, DatabaseErrorKind::Refused,
                               DatabaseErrorKind::Other};

// Whether the one line that may be refused by itself was: then the rest is stored.
bool IsSurchargeAlone(const std::vector<std::string>& stored, const std::vector<std::string>& wanted) {
  std::vector<std::string> different;
  std::set_symmetric_difference(stored.begin(), stored.end(), wanted.begin(), wanted.end(),
                                std::back_inserter(different));
  return std::all_of(different.begin(), different.end(),
                     [](const std::string& row) { return row.find("|SURCHARGE|") != std::string::npos; });
}

void TryWithARefusal(const Editor& editor, const SavedAtOnce& wanted, std::size_t index, DatabaseErrorKind kind) {
  SCOPED_TRACE(std::string(editor.name) + ", statement " + std::to_string(index));
  EditorsBench bench;
  const auto storedBefore = bench.Stored();
  const auto seenBefore = bench.Seen();
  bench.desktop.failuresExpected = true;
  bool stayed = false;
  editor.WillBeUsed(bench, [&](ui::Form& form) {
    editor.type(form);
    bench.RefuseAt(index, kind);
    test::Press(form, "F10");
    stayed = form.Visible();
    if (!stayed) return;
    EXPECT_EQ(bench.Stored(), storedBefore);
    EXPECT_EQ(bench.Seen(), seenBefore);
    test::Press(form, "F10");
  });
  editor.open(bench);
  EXPECT_THAT(bench.desktop.failures,
              testing::ElementsAre(AllOf(StartsWith(std::string(WordsOf(kind))), Not(HasSubstr("Statement")),
                                         Not(HasSubstr("insert")))));
  EXPECT_EQ(bench.Seen(), wanted.seen);
  if (stayed) {
    EXPECT_EQ(bench.Stored(), wanted.stored);
  } else {
    EXPECT_TRUE(IsSurchargeAlone(bench.Stored(), wanted.stored));
  }
}

TEST(RefusedWrites, LeaveTheEditorAndEverythingInItUntilItIsStored) {
  for (const Editor& editor : kEditors) {
    const SavedAtOnce wanted = SaveAtOnce(editor);
    ASSERT_GE(wanted.statements, 1U) << editor.name;
    for (std::size_t index = 0; index < wanted.statements; ++index) {
      TryWithARefusal(editor, wanted, index, kKinds[index % kKinds.size()]);
    }
  }
}

TEST(RefusedWrites, OfALockedDatabaseAreTriedAgainWithWhatWasTyped) {
  for (const Editor& editor : kEditors) {
    SCOPED_TRACE(editor.name);
    const SavedAtOnce wanted = SaveAtOnce(editor);
    EditorsBench bench;
    bench.desktop.failuresExpected = true;
    editor.WillBeUsed(bench, [&](ui::Form& form) {
      editor.type(form);
      bench.Hold();
      test::Press(form, "F10");
      EXPECT_TRUE(form.Visible());
      bench.LetGo();
      test::Press(form, "F10");
    });
    editor.open(bench);
    EXPECT_THAT(bench.desktop.failures, testing::ElementsAre(HasSubstr("locked")));
    EXPECT_EQ(bench.Stored(), wanted.stored);
  }
}

TEST(RefusedWrites, GivenUpAreNamedAndNothingIsChanged) {
  for (const Editor& editor : kEditors) {
    SCOPED_TRACE(editor.name);
    EditorsBench bench;
    const auto before = bench.Stored();
    bench.desktop.failuresExpected = true;
    bench.desktop.otherwise = [](const ui::Box& box) {
      return box.buttons == ui::Buttons::Ok ? Answer::Ok : Answer::Yes;
    };
    editor.WillBeUsed(bench, [&](ui::Form& form) {
      editor.type(form);
      bench.RefuseAt(0, DatabaseErrorKind::Full);
      test::Press(form, "F10");
      test::Press(form, "Esc");
    });
    editor.open(bench);
    ASSERT_FALSE(bench.desktop.boxes.empty());
    EXPECT_THAT(bench.desktop.boxes.back().text, testing::EndsWith(" was not stored."));
    EXPECT_EQ(bench.Stored(), before);
  }
}

// Killed in front of its statements, one after the other, in a process of its own; true when it came to its end.
bool IsKilledAt(EditorsBench& bench, const Editor& editor, std::size_t index) {
  bench.database.lantosData.Disconnect();  // a connection isn't for two processes
  const pid_t child = ::fork();
  if (child == 0) {
    bench.Watch([&bench, index](std::string_view) {
      if (bench.statements++ == index) ::raise(SIGKILL);
    });
    editor.WillBeUsed(bench, [&](ui::Form& form) {
      editor.type(form);
      bench.statements = 0;
      test::Press(form, "F10");
    });
    bench.statements = std::numeric_limits<std::size_t>::max() / 2;  // until the screen is up
    editor.open(bench);
    ::_exit(0);
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return WIFSIGNALED(status);
}

TEST(RefusedWrites, AndKilledOnesLeaveTheOldOrTheNewWithItsSurcharge) {
  for (const Editor& editor : kEditors) {
    const SavedAtOnce wanted = SaveAtOnce(editor);
    bool wasKilled = true;
    for (std::size_t index = 0; wasKilled; ++index) {
      SCOPED_TRACE(std::string(editor.name) + ", statement " + std::to_string(index));
      EditorsBench bench;
      const auto before = bench.Stored();
      wasKilled = IsKilledAt(bench, editor, index);
      const auto after = bench.Stored();
      EXPECT_TRUE(after == before || after == wanted.stored);
      EXPECT_TRUE(wasKilled || after == wanted.stored);
      ASSERT_LT(index, 50U);
    }
  }
}

}  // namespace
}  // namespace lantos
