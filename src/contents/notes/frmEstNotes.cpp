#include "contents/notes/frmEstNotes.h"

#include "contents/Changing.h"
#include "contents/LineNumbers.h"
#include "contents/notes/frmCanNoteList.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 8700;
constexpr ui::Twips kHeight = 5400;
const std::string kChangeNote = "Change Note";
const std::string kRemoveNote = "Remove Note";
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

LineValues ValuesOf(const Note& note) {
  LineValues values;
  AddTexts(values, "Line", note);
  return values;
}

std::string NameOf(const Note& note) { return "The note \"" + note[0] + "\""; }

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
  cmdAdd.OnClick = [this] { EditAndStore({}, NoteMode::EstimateNote); };
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
    EditAndStore({}, NoteMode::EstimateNote);
  } else if (key.Is("Delete")) {
    key.Clear();
    Remove();
  } else {
    SizedForm::OnKeyDown(key);
  }
}

// The editor stays until its note is stored, and is gone before that can be seen.
void frmEstNotes::EditAndStore(const Note& note, NoteMode mode, Replaced* replaced) {
  std::optional<std::int32_t> stored;
  Note edited;
  {
    frmNotes editor(bench_.shop, mode, note);
    const auto store = [&] {
      stored = replaced != nullptr ? StoreInPlace(editor.CurrentNote, *replaced) : Store(editor.CurrentNote);
    };
    editor.StoreBy({store, [&] { return NameOf(editor.CurrentNote); }});
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
      NameOf(edited), [this] { LoadNotes(); }, show);
}

std::optional<std::int32_t> frmEstNotes::StoreInPlace(const Note& note, Replaced& replaced) {
  const auto store = [&] { Store(note, &replaced); };
  const bool isStored =
      replaced.note.Store(bench_.shop.desktop, kChangeNote, ValuesOf(note), {store, [this] { LoadNotes(); }});
  return isStored ? std::optional(replaced.number) : std::nullopt;
}

std::int32_t frmEstNotes::Store(const Note& note, Replaced* replaced) {
  de& data = bench_.Data();
  std::int32_t stored = 0;
  const auto write = [&] {
    if (replaced != nullptr) {
      stored = replaced->number;
      replaced->note.Expect(ValuesStored(stored));
      data.DeleteNote(bench_.Number(), stored);
    } else {
      stored = NumberForNewLine(data.NotesForEstimate(bench_.Number()), "NoteNumber", notes_.NextNumber());
    }
    data.AddNote(bench_.Number(), stored, std::vector<std::string>(note.begin(), note.end()));
  };
  StoreOrReload([&] { TakeNumberAndStore([&] { data.Connection().Together(write); }); }, [this] { LoadNotes(); });
  return stored;
}

std::optional<LineValues> frmEstNotes::ValuesStored(std::int32_t number) {
  return StoredValues(
      bench_.Data().NotesForEstimate(bench_.Number()),
      [number](const Recordset& row) { return row.Long("NoteNumber") == number; },
      [](const Recordset& row) { return ValuesOf(ReadNote(row)); });
}

void frmEstNotes::AddCanned() {
  frmCanNoteList list(bench_.shop);
  list.ShowModal();
  if (list.Picked()) EditAndStore(list.CurrentNote, NoteMode::OnItsWay);
}

void frmEstNotes::Change() {
  const std::optional<std::int32_t> number = notes_.Selected();
  if (!number) {
    bench_.shop.desktop.Tell("Must select a note to change.", kChangeNote);
    return;
  }
  Replaced replaced{*number, ListedLine(ValuesOf(notes_[*number]))};
  EditAndStore(Note(notes_[*number]), NoteMode::EstimateNote, &replaced);
}

void frmEstNotes::Remove() {
  const std::optional<std::int32_t> number = notes_.Selected();
  if (!number) {
    bench_.shop.desktop.Tell("You must select a note in order to remove it.", kRemoveNote);
    return;
  }
  const std::string question = "Remove\r    " + notes_[*number][0] + "\rfrom this estimate?";
  if (bench_.shop.desktop.Ask(question, kRemoveNote, ui::Buttons::YesNo) != ui::Answer::Yes) return;
  ListedLine listed(ValuesOf(notes_[*number]));
  const auto remove = [&] {
    listed.Expect(ValuesStored(*number));
    bench_.Data().DeleteNote(bench_.Number(), *number);
  };
  const auto reload = [this] { LoadNotes(); };
  const auto transaction = [&] { StoreOrReload([&] { bench_.Data().Connection().Together(remove); }, reload); };
  if (!RemoveAsListed(bench_.shop.desktop, kRemoveNote, NameOf(notes_[*number]) + " was", {transaction, reload}))
    return;
  notes_.Remove(*number);
  listNotes.SetFocus();
}

void EstimateNotes(Workbench& bench) {
  frmEstNotes form(bench);
  form.ShowModal();
}

}  // namespace lantos
