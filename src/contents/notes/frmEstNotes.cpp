#include "contents/notes/frmEstNotes.h"

#include "contents/Changing.h"
#include "contents/LineNumbers.h"
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
  cmdAdd.OnClick = [this] { EditAndStore({}, NoteMode::EstimateNote, std::nullopt); };
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
  std::map<std::int32_t, Note> notes;
  for (; !stored.Eof(); stored.MoveNext()) notes.insert_or_assign(stored.Long("NoteNumber"), ReadNote(stored));
  stored.Close();
  notes_.StartAnew();
  for (const auto& [number, note] : notes) notes_.Put(number, note);
  if (notes_.Lines().empty()) return;
  notes_.Select(selected && notes_.Contains(*selected) ? *selected : notes_.Lines().begin()->first);
}

void frmEstNotes::OnKeyDown(ui::KeyPress& key) {
  if (key.Is("Insert")) {
    key.Clear();
    EditAndStore({}, NoteMode::EstimateNote, std::nullopt);
  } else if (key.Is("Delete")) {
    key.Clear();
    Remove();
  } else {
    SizedForm::OnKeyDown(key);
  }
}

// The editor stays until its note is stored, and is gone before that can be seen.
void frmEstNotes::EditAndStore(const Note& note, NoteMode mode, std::optional<std::int32_t> number) {
  std::optional<std::int32_t> stored;
  Note edited;
  {
    frmNotes editor(bench_.shop, mode, note);
    editor.StoreBy({[&] { stored = Store(number, editor.CurrentNote); },
                    [&] { return "The note \"" + editor.CurrentNote[0] + "\""; }});
    editor.ShowModal();
    edited = editor.CurrentNote;
  }
  if (!stored) return;
  const auto show = [&] {
    notes_.Put(*stored, edited);
    notes_.Select(*stored);
    listNotes.SetFocus();
  };
  if (!notes_.IsBehindUnseen(*stored)) return show();
  ShowStored(
      "The note \"" + edited[0] + "\"", [this] { LoadNotes(); }, show);
}

std::int32_t frmEstNotes::Store(std::optional<std::int32_t> number, const Note& note) {
  de& data = bench_.Data();
  std::int32_t stored = 0;
  const auto write = [&] {
    if (number) data.DeleteNote(bench_.Number(), *number);
    stored =
        number ? *number : NumberForNewLine(data.NotesForEstimate(bench_.Number()), "NoteNumber", notes_.NextNumber());
    data.AddNote(bench_.Number(), stored, std::vector<std::string>(note.begin(), note.end()));
  };
  StoreOrReload([&] { TakeNumberAndStore([&] { data.Connection().Together(write); }); }, [this] { LoadNotes(); });
  return stored;
}

void frmEstNotes::AddCanned() {
  frmCanNoteList list(bench_.shop);
  list.ShowModal();
  if (list.Picked()) EditAndStore(list.CurrentNote, NoteMode::OnItsWay, std::nullopt);
}

void frmEstNotes::Change() {
  const std::optional<std::int32_t> number = notes_.Selected();
  if (!number) {
    bench_.shop.desktop.Tell("Must select a note to change.", "Change Note");
    return;
  }
  EditAndStore(Note(notes_[*number]), NoteMode::EstimateNote, number);
}

void frmEstNotes::Remove() {
  const std::optional<std::int32_t> number = notes_.Selected();
  if (!number) {
    bench_.shop.desktop.Tell("You must select a note in order to remove it.", "Remove Note");
    return;
  }
  const std::string question = "Remove\r    " + notes_[*number][0] + "\rfrom this estimate?";
  if (bench_.shop.desktop.Ask(question, "Remove Note", ui::Buttons::YesNo) != ui::Answer::Yes) return;
  StoreOrReload([&] { bench_.Data().DeleteNote(bench_.Number(), *number); }, [this] { LoadNotes(); });
  notes_.Remove(*number);
  listNotes.SetFocus();
}

void EstimateNotes(Workbench& bench) {
  frmEstNotes form(bench);
  form.ShowModal();
}

}  // namespace lantos
