#include "contents/notes/frmEstNotes.h"

#include <algorithm>

#include "contents/notes/frmCanNoteList.h"
#include "contents/notes/frmNotes.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 8700;
constexpr ui::Twips kHeight = 5400;
constexpr std::string_view kFirstRow = "--> ";
constexpr std::string_view kOtherRows = "    ";

// What of a stored note can be seen: the lines that aren't empty.
Note ReadNote(const Recordset& row) {
  Note note;
  std::size_t used = 0;
  for (std::size_t i = 1; i <= kCannedLines; ++i) {
    const std::string line = Trim(row.Text("Desc" + std::to_string(i)));
    if (!line.empty()) note[used++] = line;
  }
  return note;
}

}  // namespace

frmEstNotes::frmEstNotes(Workbench& bench)
    : SizedForm(bench.shop.desktop, bench.shop.keys, bench.shop.environment.settings, "frmEstNotes", "Estimate Notes"),
      bench_(bench) {
  SetDesignedSize(kWidth, kHeight);
  listNotes.SetFace(ui::FontFace::FixedPitch);
  listNotes.OnDoubleClick = [this] { Change(); };
  UseButtons(cmdClose, cmdClose);
  cmdAdd.OnClick = [this] { Add({}, false); };
  cmdCanned.OnClick = [this] { AddCanned(); };
  cmdChange.OnClick = [this] { Change(); };
  cmdRemove.OnClick = [this] { Remove(); };
  SetDefaultButton(cmdChange);
  cmdAdd.SetToolTip("Add a note <Insert>");
  cmdCanned.SetToolTip("Add a note from the shop's list");
  cmdChange.SetToolTip("Change the selected note <Enter>");
  cmdRemove.SetToolTip("Remove the selected note <Delete>");
  cmdClose.SetToolTip("Close <Esc>");
}

void frmEstNotes::OnLoad() {
  SizedForm::OnLoad();
  Recordset& stored = bench_.Data().NotesForEstimate(bench_.Number());
  for (; !stored.Eof(); stored.MoveNext()) notes_[stored.Long("NoteNumber")] = ReadNote(stored);
  stored.Close();
  if (!notes_.empty()) lastNoteNumber_ = notes_.rbegin()->first;
  ShowNotes(notes_.empty() ? 0 : notes_.begin()->first);
}

void frmEstNotes::OnKeyDown(ui::KeyPress& key) {
  if (key.Is("Insert")) {
    key.Clear();
    Add({}, false);
  } else if (key.Is("Delete")) {
    key.Clear();
    Remove();
  } else {
    SizedForm::OnKeyDown(key);
  }
}

void frmEstNotes::ShowNotes(std::int32_t selected) {
  listNotes.Clear();
  int selectedRow = -1;
  for (const auto& [number, note] : notes_) {
    // Shown without a text too, so that it can be removed.
    const int row = listNotes.AddItem(std::string(kFirstRow) + note[0], number);
    if (number == selected) selectedRow = row;
    for (std::size_t i = 1; i < note.size(); ++i) {
      if (!note[i].empty()) listNotes.AddItem(std::string(kOtherRows) + note[i]);
    }
  }
  if (selectedRow >= 0) listNotes.SetListIndex(selectedRow);
}

std::int32_t frmEstNotes::SelectedNote() const {
  int row = listNotes.ListIndex();
  while (row > 0 && !listNotes.List(row).starts_with(kFirstRow)) --row;
  return row < 0 ? 0 : listNotes.ItemData(row);
}

void frmEstNotes::Store(std::int32_t number, const Note& note) {
  bench_.Data().Connection().Together([&] {
    if (notes_.contains(number)) bench_.Data().DeleteNote(bench_.Number(), number);
    bench_.Data().AddNote(bench_.Number(), number, std::vector<std::string>(note.begin(), note.end()));
  });
  notes_[number] = note;
  lastNoteNumber_ = std::max(lastNoteNumber_, number);
  ShowNotes(number);
  listNotes.SetFocus();
}

void frmEstNotes::Add(const Note& note, bool canned) {
  frmNotes editor(bench_.shop, canned ? NoteMode::OnItsWay : NoteMode::EstimateNote, note);
  editor.ShowModal();
  if (!editor.Saved()) return;
  Store(lastNoteNumber_ + 1, editor.CurrentNote);
}

void frmEstNotes::AddCanned() {
  frmCanNoteList list(bench_.shop);
  list.ShowModal();
  if (list.Picked()) Add(list.CurrentNote, true);
}

void frmEstNotes::Change() {
  const std::int32_t number = SelectedNote();
  if (number == 0) {
    bench_.shop.desktop.Tell("Must select a note to change.", "Change Note");
    return;
  }
  frmNotes editor(bench_.shop, NoteMode::EstimateNote, notes_.at(number));
  editor.ShowModal();
  if (!editor.Saved()) return;
  Store(number, editor.CurrentNote);
}

void frmEstNotes::Remove() {
  const std::int32_t number = SelectedNote();
  if (number == 0) {
    bench_.shop.desktop.Tell("You must select a note in order to remove it.", "Remove Note");
    return;
  }
  const std::string question = "Remove\r    " + notes_.at(number)[0] + "\rfrom this estimate?";
  if (bench_.shop.desktop.Ask(question, "Remove Note", ui::Buttons::YesNo) != ui::Answer::Yes) return;
  bench_.Data().DeleteNote(bench_.Number(), number);
  notes_.erase(number);
  ShowNotes(0);
  listNotes.SetFocus();
}

void EstimateNotes(Workbench& bench) {
  if (bench.Number() == 0) {
    bench.shop.desktop.Tell("Must first select an estimate.", "Estimate Notes");
    return;
  }
  frmEstNotes form(bench);
  form.ShowModal();
}

}  // namespace lantos
