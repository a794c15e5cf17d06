#include "contents/notes/frmEstNotes.h"

#include "contents/Changing.h"
#include "contents/notes/frmCanNoteList.h"
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

// The first line has its row without a text too, so that the note can be removed.
std::vector<std::string> RowsOf(const Note& note) {
  std::vector<std::string> rows = {std::string(kFirstRow) + note[0]};
  for (std::size_t i = 1; i < note.size(); ++i) {
    if (!note[i].empty()) rows.push_back(std::string(kOtherRows) + note[i]);
  }
  return rows;
}

}  // namespace

frmEstNotes::frmEstNotes(Workbench& bench)
    : SizedForm(bench.shop.desktop, bench.shop.keys, bench.shop.environment.settings, "frmEstNotes", "Estimate Notes"),
      bench_(bench),
      notes_(listNotes, RowsOf) {
  SetDesignedSize(kWidth, kHeight);
  listNotes.SetFace(ui::FontFace::FixedPitch);
  listNotes.OnDoubleClick = [this] { Change(); };
  UseButtons(cmdClose, cmdClose);
  cmdAdd.OnClick = [this] { Add({}, NoteMode::EstimateNote); };
  cmdCanned.OnClick = [this] { AddCanned(); };
  cmdChange.OnClick = [this] { Change(); };
  cmdRemove.OnClick = [this] { Remove(); };
  SetDefaultButton(cmdChange);
  listNotes.SetToolTip("Back to the estimate <F10>");
  listNotes.SetSpokenName("Notes");
  cmdAdd.SetToolTip("Add a note <Insert>");
  cmdCanned.SetToolTip("Add a note from the shop's list");
  cmdChange.SetToolTip("Change the selected note <Enter>");
  cmdRemove.SetToolTip("Remove the selected note <Delete>");
  cmdClose.SetToolTip("Close <Esc>");
}

void frmEstNotes::OnLoad() {
  SizedForm::OnLoad();
  LoadNotes();
}

void frmEstNotes::LoadNotes() {
  const std::optional<std::int32_t> selected = notes_.Selected();
  Recordset& stored = bench_.Data().NotesForEstimate(bench_.Number());
  notes_.StartAnew();
  for (; !stored.Eof(); stored.MoveNext()) notes_.Put(stored.Long("NoteNumber"), ReadNote(stored));
  stored.Close();
  if (notes_.Lines().empty()) return;
  notes_.Select(selected && notes_.Contains(*selected) ? *selected : notes_.Lines().begin()->first);
}

void frmEstNotes::OnKeyDown(ui::KeyPress& key) {
  if (key.Is("Insert")) {
    key.Clear();
    Add({}, NoteMode::EstimateNote);
  } else if (key.Is("Delete")) {
    key.Clear();
    Remove();
  } else {
    SizedForm::OnKeyDown(key);
  }
}

void frmEstNotes::Store(std::int32_t number, const Note& note) {
  const auto store = [&] {
    if (notes_.Contains(number)) bench_.Data().DeleteNote(bench_.Number(), number);
    bench_.Data().AddNote(bench_.Number(), number, std::vector<std::string>(note.begin(), note.end()));
  };
  ChangeOrGoBack([&] { bench_.Data().Connection().Together(store); }, [this] { LoadNotes(); });
  notes_.Put(number, note);
  notes_.Select(number);
  listNotes.SetFocus();
}

void frmEstNotes::Add(const Note& note, NoteMode mode) {
  frmNotes editor(bench_.shop, mode, note);
  editor.ShowModal();
  if (!editor.Saved()) return;
  Store(notes_.NextNumber(), editor.CurrentNote);
}

void frmEstNotes::AddCanned() {
  frmCanNoteList list(bench_.shop);
  list.ShowModal();
  if (list.Picked()) Add(list.CurrentNote, NoteMode::OnItsWay);
}

void frmEstNotes::Change() {
  const std::optional<std::int32_t> number = notes_.Selected();
  if (!number) {
    bench_.shop.desktop.Tell("Must select a note to change.", "Change Note");
    return;
  }
  frmNotes editor(bench_.shop, NoteMode::EstimateNote, notes_[*number]);
  editor.ShowModal();
  if (!editor.Saved()) return;
  Store(*number, editor.CurrentNote);
}

void frmEstNotes::Remove() {
  const std::optional<std::int32_t> number = notes_.Selected();
  if (!number) {
    bench_.shop.desktop.Tell("You must select a note in order to remove it.", "Remove Note");
    return;
  }
  const std::string question = "Remove\r    " + notes_[*number][0] + "\rfrom this estimate?";
  if (bench_.shop.desktop.Ask(question, "Remove Note", ui::Buttons::YesNo) != ui::Answer::Yes) return;
  ChangeOrGoBack([&] { bench_.Data().DeleteNote(bench_.Number(), *number); }, [this] { LoadNotes(); });
  notes_.Remove(*number);
  listNotes.SetFocus();
}

void EstimateNotes(Workbench& bench) {
  frmEstNotes form(bench);
  form.ShowModal();
}

}  // namespace lantos
