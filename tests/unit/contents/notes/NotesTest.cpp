#include <gmock/gmock.h>

#include "contents/ContentsBench.h"
#include "contents/notes/frmCanNoteList.h"
#include "contents/notes/frmEstNotes.h"
#include "contents/notes/frmNotes.h"

namespace lantos {
namespace {

using test::ContentsBench;
using testing::ElementsAre;
using ui::Answer;
using Texts = std::vector<std::string>;

Texts Rows(const ui::ListBox& list) {
  Texts rows;
  for (const ui::ListRow& row : list.Rows()) rows.push_back(row.text);
  return rows;
}

struct NotesBench : ContentsBench {
  void Store(std::int32_t number, const Note& note) {
    database.lantosData.AddNote(1001, number, Texts(note.begin(), note.end()));
  }
  // "number: lines" of what lies in the database.
  Texts Stored() {
    Texts rows;
    Recordset& stored = database.lantosData.NotesForEstimate(1001);
    for (; !stored.Eof(); stored.MoveNext()) {
      std::string row = std::to_string(stored.Long("NoteNumber")) + ":";
      for (int i = 1; i <= 8; ++i) row += stored.Text("Desc" + std::to_string(i)) + "/";
      rows.push_back(row);
    }
    stored.Close();
    return rows;
  }
  // The person in the editor that comes next.
  void WillType(const std::string& caption, const std::string& text, const std::string& key = "F10") {
    desktop.WillUse([=](ui::Form& form) {
      EXPECT_EQ(form.Caption(), caption);
      test::Type(dynamic_cast<frmNotes&>(form).txtDesc, text);
      test::Press(form, key);
    });
  }
};

TEST(frmNotes, TheNinthLineIsToldAndLost) {
  NotesBench bench;
  frmNotes form(bench.shop, NoteMode::EstimateNote, Note{});
  form.LoadForm();
  test::Type(form.txtDesc, "1\n2\n3\n4\n5\n6\n7\n8\n9");
  bench.desktop.WillAnswer(Answer::Ok);
  form.cmdSave.DoClick();
  EXPECT_EQ(bench.desktop.boxes[0].text, "Remaining characters truncated:\r\n9");
  EXPECT_EQ(bench.desktop.boxes[0].title, "Estimate Notes");
  EXPECT_TRUE(form.Saved());
  EXPECT_EQ(form.CurrentNote, (Note{"1", "2", "3", "4", "5", "6", "7", "8"}));
  EXPECT_EQ(form.Desc[7].Text(), "8");
}

TEST(frmNotes, ResetGoesBackToTheTextAtLoadAndEscapeSavesNothing) {
  NotesBench bench;
  frmNotes form(bench.shop, NoteMode::EstimateNote, Note{"Call", "Beth"});
  form.LoadForm();
  EXPECT_EQ(form.txtDesc.Text(), "Call\r\nBeth");
  test::Type(form.txtDesc, "Something else");
  test::Press(form, "F2");
  EXPECT_EQ(form.txtDesc.Text(), "Call\r\nBeth");
  test::Press(form, "Esc");
  EXPECT_FALSE(form.Saved());
  EXPECT_EQ(form.CurrentNote, (Note{"Call", "Beth"}));
}

TEST(frmNotes, TheModesHaveTheirCaptions) {
  NotesBench bench;
  EXPECT_EQ(frmNotes(bench.shop, NoteMode::EstimateNote, {}).Caption(), "Estimate Notes");
  EXPECT_EQ(frmNotes(bench.shop, NoteMode::OnItsWay, {}).Caption(), "Canned Estimate Notes");
  EXPECT_EQ(frmNotes(bench.shop, NoteMode::OfTheList, {}).Caption(), "Canned Workorder Notes");
}

TEST(frmNotes, SpellingNeedsAWordProcessor) {
  NotesBench bench;
  frmNotes form(bench.shop, NoteMode::EstimateNote, {});
  form.LoadForm();
  bench.desktop.WillAnswer(Answer::Ok);
  form.cmdSpellCheck.DoClick();
  EXPECT_EQ(bench.desktop.boxes[0].text, "Microsoft Word is required in order to check the spelling.");
}

TEST(frmEstNotes, ShowsARowForEachLineAndTheNumberAtTheFirst) {
  NotesBench bench;
  bench.Store(2, Note{"Second", "", "third line"});
  bench.Store(1, Note{"First"});
  frmEstNotes form(bench.bench);
  form.LoadForm();
  EXPECT_THAT(Rows(form.listNotes), ElementsAre("--> First", "--> Second", "    third line"));
  EXPECT_EQ(form.listNotes.ItemData(0), 1);
  EXPECT_EQ(form.listNotes.ItemData(1), 2);
}

TEST(frmEstNotes, AnAddedNoteTakesTheNumberBehindTheHighest) {
  NotesBench bench;
  bench.Store(5, Note{"Fifth"});
  frmEstNotes form(bench.bench);
  form.LoadForm();
  bench.WillType("Estimate Notes", "one\n\ntwo");
  form.cmdAdd.DoClick();
  EXPECT_THAT(bench.Stored(), ElementsAre("5:Fifth////////", "6:one/two///////"));
  EXPECT_THAT(Rows(form.listNotes), ElementsAre("--> Fifth", "--> one", "    two"));
  bench.WillType("Estimate Notes", "never", "Esc");
  bench.desktop.WillAnswer(Answer::Yes);
  form.cmdAdd.DoClick();
  EXPECT_EQ(bench.Stored().size(), 2U);
}

TEST(frmEstNotes, AChangedNoteKeepsItsNumber) {
  NotesBench bench;
  bench.Store(3, Note{"old", "text"});
  frmEstNotes form(bench.bench);
  form.LoadForm();
  form.listNotes.DoSelect(1);  // its second row
  bench.WillType("Estimate Notes", "new");
  form.cmdChange.DoClick();
  EXPECT_THAT(bench.Stored(), ElementsAre("3:new////////"));
}

TEST(frmEstNotes, ChangeAndRemoveNeedASelection) {
  NotesBench bench;
  frmEstNotes form(bench.bench);
  form.LoadForm();
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  form.cmdChange.DoClick();
  form.cmdRemove.DoClick();
  EXPECT_EQ(bench.desktop.boxes[0].text, "Must select a note to change.");
  EXPECT_EQ(bench.desktop.boxes[0].title, "Change Note");
  EXPECT_EQ(bench.desktop.boxes[1].text, "You must select a note in order to remove it.");
  EXPECT_EQ(bench.desktop.boxes[1].title, "Remove Note");
}

TEST(frmEstNotes, ARemovedNoteGoesWithAllItsRows) {
  NotesBench bench;
  bench.Store(1, Note{"stays"});
  bench.Store(2, Note{"goes", "away"});
  frmEstNotes form(bench.bench);
  form.LoadForm();
  form.listNotes.DoSelect(2);
  bench.desktop.WillAnswer({Answer::No, Answer::Yes});
  form.cmdRemove.DoClick();
  EXPECT_EQ(bench.Stored().size(), 2U);
  form.cmdRemove.DoClick();
  EXPECT_EQ(bench.desktop.boxes[1].text, "Remove\r    goes\rfrom this estimate?");
  EXPECT_THAT(bench.Stored(), ElementsAre("1:stays////////"));
  EXPECT_THAT(Rows(form.listNotes), ElementsAre("--> stays"));
}

TEST(frmEstNotes, ANumberThatAnotherWorkstationHasTakenIsPassedOverAndItsNoteSeen) {
  NotesBench bench;
  bench.Store(1, Note{"stays"});
  frmEstNotes form(bench.bench);
  form.LoadForm();
  form.Show();
  bench.Store(2, Note{"of another", "workstation"});
  bench.WillType("Estimate Notes", "ours");
  form.cmdAdd.DoClick();
  EXPECT_EQ(bench.Stored().back(), "3:ours////////");
  EXPECT_THAT(Rows(form.listNotes), ElementsAre("--> stays", "--> of another", "    workstation", "--> ours"));
  EXPECT_EQ(form.listNotes.ListIndex(), 3);
}

TEST(frmEstNotes, WhatTheDatabaseRefusesLeavesTheListAsTheDatabaseIs) {
  NotesBench bench;
  bench.Store(1, Note{"stays"});
  frmEstNotes form(bench.bench);
  form.LoadForm();
  form.Show();
  bench.Store(2, Note{"of another", "workstation"});
  bench.desktop.failuresExpected = true;
  bench.Do("create trigger Refuse before delete on Notes begin select raise(abort, 'no'); end");
  bench.desktop.WillAnswer(Answer::Yes);
  form.cmdRemove.DoClick();
  bench.desktop.WillUse([&](ui::Form& editor) {
    auto& note = dynamic_cast<frmNotes&>(editor);
    test::Type(note.txtDesc, "changed");
    test::Press(editor, "F10");
    EXPECT_TRUE(editor.Visible());
    EXPECT_EQ(note.txtDesc.Text(), "changed");
    bench.desktop.WillAnswer({Answer::Yes, Answer::Ok});
    test::Press(editor, "Esc");
  });
  form.cmdChange.DoClick();
  EXPECT_EQ(bench.desktop.boxes.back().text, "The note \"changed\" was not stored.");
  EXPECT_THAT(bench.desktop.failures,
              ElementsAre(std::string(WordsOf(DatabaseErrorKind::Refused)),
                          testing::StartsWith(std::string(WordsOf(DatabaseErrorKind::Refused)))));
  EXPECT_THAT(Rows(form.listNotes), ElementsAre("--> stays", "--> of another", "    workstation"));
}

TEST(frmEstNotes, ACannedNoteChangedOnItsWayLeavesTheListAsItWas) {
  NotesBench bench;
  bench.directory.Put("TQCANNOT.DAT", "Call\tbefore noon\r\nSecond\r\n");
  frmEstNotes form(bench.bench);
  form.LoadForm();
  bench.desktop.WillUse([](ui::Form& list) {
    dynamic_cast<frmCanNoteList&>(list).CanList.DoSelect(1);
    test::Press(list, "F10");
  });
  bench.desktop.WillUse([](ui::Form& editor) {
    EXPECT_EQ(editor.Caption(), "Canned Estimate Notes");
    auto& notes = dynamic_cast<frmNotes&>(editor);
    EXPECT_EQ(notes.txtDesc.Text(), "Call\r\nbefore noon");
    test::Type(notes.txtDesc, "Call\nafter noon");
    test::Press(editor, "F10");
  });
  form.cmdCanned.DoClick();
  EXPECT_THAT(bench.Stored(), ElementsAre("1:Call/after noon///////"));
  EXPECT_EQ(bench.directory.Content("TQCANNOT.DAT"), "Call\tbefore noon\r\nSecond\r\n");
}

struct CannedList : NotesBench {
  CannedList() {
    directory.Put("TQCANNOT.DAT", "Call\tbefore noon\r\nSecond\r\n");
    form.LoadForm();
    form.Show();
  }
  std::string File() { return directory.Content("TQCANNOT.DAT"); }
  frmCanNoteList form{shop};
};

TEST(frmCanNoteList, ShowsEachNoteWithItsPlaceInTheList) {
  CannedList list;
  EXPECT_THAT(Rows(list.form.CanList), ElementsAre("Call", "    before noon", "Second"));
  EXPECT_EQ(list.form.CanList.ItemData(1), 0);
  EXPECT_EQ(list.form.CanList.ItemData(2), 1);
  EXPECT_EQ(list.form.cmdDelete.ToolTip(), "Delete canned labor item <Delete>");
}

TEST(frmCanNoteList, TheFileIsRewrittenOnClosingWhenTheListChanged) {
  CannedList list;
  list.WillType("Canned Workorder Notes", "Third\nnote");
  list.form.cmdAdd.DoClick();
  EXPECT_EQ(list.File(), "Call\tbefore noon\r\nSecond\r\n");
  list.form.CanList.DoSelect(2);
  list.WillType("Canned Workorder Notes", "2nd");
  list.form.cmdEdit.DoClick();
  test::Press(list.form, "Esc");
  EXPECT_FALSE(list.form.Visible());
  EXPECT_FALSE(list.form.Picked());
  EXPECT_EQ(list.File(), "Call\tbefore noon\r\n2nd\r\nThird\tnote\r\n");
}

TEST(frmCanNoteList, AnUnchangedListIsNotWritten) {
  CannedList list;
  list.directory.Put("TQCANNOT.DAT", "by somebody else\r\n");
  test::Press(list.form, "Esc");
  EXPECT_EQ(list.File(), "by somebody else\r\n");
}

TEST(frmCanNoteList, AListWithAllEntriesDeletedGivesAnEmptyFile) {
  CannedList list;
  list.desktop.WillAnswer({Answer::No, Answer::Yes, Answer::Yes});
  list.form.CanList.DoSelect(1);
  list.form.cmdDelete.DoClick();
  EXPECT_EQ(list.desktop.boxes[0].text, "Delete Call?");
  EXPECT_EQ(list.form.CanList.ListCount(), 3);
  list.form.cmdDelete.DoClick();
  EXPECT_THAT(Rows(list.form.CanList), ElementsAre("Second"));
  list.form.CanList.DoSelect(0);
  list.form.cmdDelete.DoClick();
  EXPECT_EQ(list.form.CanList.ListCount(), 0);
  test::Press(list.form, "Esc");
  EXPECT_EQ(list.File(), "");
}

TEST(frmCanNoteList, SelectWritesAChangedListFirst) {
  CannedList list;
  list.WillType("Canned Workorder Notes", "Third");
  list.form.cmdAdd.DoClick();
  list.form.CanList.DoSelect(0);
  list.form.cmdSelect.DoClick();
  EXPECT_TRUE(list.form.Picked());
  EXPECT_EQ(list.form.CurrentNote, (Note{"Call", "before noon"}));
  EXPECT_EQ(list.File(), "Call\tbefore noon\r\nSecond\r\nThird\r\n");
}

TEST(frmCanNoteList, WhatAnotherWorkstationHasStoredIsOverwrittenOnlyIfThePersonWants) {
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    CannedList list;
    list.WillType("Canned Workorder Notes", "Third");
    list.form.cmdAdd.DoClick();
    list.directory.Put("TQCANNOT.DAT", "by somebody else\r\n");
    list.desktop.WillAnswer(answer);
    test::Press(list.form, "Esc");
    ASSERT_EQ(list.desktop.boxes.size(), 1U);
    EXPECT_EQ(list.desktop.boxes[0].text,
              "Somebody else has changed this list (TQCANNOT.DAT) meanwhile.\r\rDo you want to store yours in its "
              "place?\rNo keeps what is stored, and shows it here.");
    EXPECT_EQ(list.form.Visible(), answer == Answer::No);
    EXPECT_EQ(list.File(), answer == Answer::No ? "by somebody else\r\n" : "Call\tbefore noon\r\nSecond\r\nThird\r\n");
    if (answer == Answer::Yes) continue;
    EXPECT_THAT(Rows(list.form.CanList), ElementsAre("by somebody else"));
    test::Press(list.form, "Esc");
    EXPECT_FALSE(list.form.Visible()) << "nothing is left to be stored";
  }
}

TEST(frmCanNoteList, APickFromAListThatIsntStoredTakesNothing) {
  CannedList list;
  list.WillType("Canned Workorder Notes", "Third");
  list.form.cmdAdd.DoClick();
  list.directory.Put("TQCANNOT.DAT", "by somebody else\r\n");
  list.desktop.WillAnswer(Answer::No);
  list.form.cmdSelect.DoClick();
  EXPECT_FALSE(list.form.Picked());
  EXPECT_TRUE(list.form.Visible());
}

TEST(frmCanNoteList, AFileThatIsHeldEndsTheClosingWithTheErrorShown) {
  CannedList list;
  list.WillType("Canned Workorder Notes", "Third");
  list.form.cmdAdd.DoClick();
  list.desktop.failuresExpected = true;
  {
    const SharedFile holder(list.directory / "TQCANNOT.DAT", Access::Read, Deny::All);
    list.form.cmdClose.DoClick();
  }
  EXPECT_EQ(list.desktop.failures.size(), 1U);
  EXPECT_TRUE(list.form.Visible()) << "the list isn't lost";
  list.form.cmdClose.DoClick();
  EXPECT_FALSE(list.form.Visible());
  EXPECT_EQ(list.File(), "Call\tbefore noon\r\nSecond\r\nThird\r\n");
}

}  // namespace
}  // namespace lantos
