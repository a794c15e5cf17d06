#include "contents/notes/frmCanNoteList.h"

#include "contents/notes/frmNotes.h"
#include "frame/Text.h"
#include "printing/ListReport.h"
#include "printing/ShowReport.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 7500;
constexpr ui::Twips kHeight = 5400;
constexpr std::string_view kIndent = "    ";

std::vector<std::string> RowsOf(const Note& note) {
  std::vector<std::string> rows = {Left(note[0], kNoteLineWidth)};
  for (std::size_t line = 1; line < note.size(); ++line) {
    if (!note[line].empty()) rows.push_back(std::string(kIndent) + note[line]);
  }
  return rows;
}

}  // namespace

frmCanNoteList::frmCanNoteList(Shop& shop)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmCanNoteList", "Canned Notes List"),
      shop_(shop),
      file_(shop.environment, kCannedNoteFile),
      notes_(CanList, RowsOf, NumberAt::EveryRow, 0) {
  SetDesignedSize(kWidth, kHeight);
  CanList.SetFace(ui::FontFace::FixedPitch);
  CanList.OnDoubleClick = [this] { Accept(); };
  UseButtons(cmdSelect, cmdClose);
  cmdAdd.OnClick = [this] { Add(); };
  cmdEdit.OnClick = [this] { Edit(); };
  cmdDelete.OnClick = [this] { Delete(); };
  cmdPrint.OnClick = [this] { Print(); };
  // The words of the list of canned labor, which this screen was made after.
  cmdSelect.SetToolTip("Add to workorder <F10>");
  cmdAdd.SetToolTip("Add canned labor item <Insert>");
  cmdEdit.SetToolTip("Edit canned labor item <F4>");
  cmdDelete.SetToolTip("Delete canned labor item <Delete>");
  cmdPrint.SetToolTip("Print canned labor items");
  cmdClose.SetToolTip("Close <Esc>");
}

void frmCanNoteList::OnLoad() {
  SizedForm::OnLoad();
  ListAll(file_.Read());
}

void frmCanNoteList::ListAll(const std::vector<std::string>& lines) {
  std::int32_t place = 0;
  for (const Note& note : CannedNotesIn(lines)) List(place++, note);
  notes_.Select(0);
}

void frmCanNoteList::OnKeyDown(ui::KeyPress& key) {
  const auto serve = [&key](auto action) {
    key.Clear();
    action();
  };
  if (key.Is("Insert")) return serve([this] { Add(); });
  if (key.Is("F4")) return serve([this] { Edit(); });
  if (key.Is("Delete")) return serve([this] { Delete(); });
  SizedForm::OnKeyDown(key);
}

// A note whose first line is the mark of the deleted ones is gone.
void frmCanNoteList::List(std::int32_t place, const Note& note) {
  notes_.Reserve(place);
  if (IsDeleted(note)) return notes_.Remove(place);
  notes_.Put(place, note);
}

std::optional<std::int32_t> frmCanNoteList::SelectedNote() {
  const std::optional<std::int32_t> place = notes_.Selected();
  if (!place) shop_.desktop.Tell("Must select entry in list.", Caption());
  return place;
}

void frmCanNoteList::Add() {
  frmNotes editor(shop_, NoteMode::OfTheList, {});
  editor.ShowModal();
  if (editor.Saved()) Keep(notes_.NextNumber(), editor.CurrentNote);
}

void frmCanNoteList::Edit() {
  const std::optional<std::int32_t> place = SelectedNote();
  if (!place) return;
  frmNotes editor(shop_, NoteMode::OfTheList, notes_[*place]);
  editor.ShowModal();
  if (editor.Saved()) Keep(*place, editor.CurrentNote);
}

void frmCanNoteList::Keep(std::int32_t place, const Note& note) {
  List(place, note);
  changed_ = true;
  notes_.Select(place);
}

void frmCanNoteList::Delete() {
  const std::optional<std::int32_t> place = SelectedNote();
  if (!place) return;
  if (shop_.desktop.Ask("Delete " + notes_[*place][0] + "?", Caption(), ui::Buttons::YesNo) != ui::Answer::Yes) return;
  notes_.Remove(*place);
  changed_ = true;
}

void frmCanNoteList::Print() {
  if (shop_.desktop.Ask("Print Canned Notes List?", Caption(), ui::Buttons::YesNo) != ui::Answer::Yes) return;
  ReportLines lines(ReportLines::Amounts::None);
  for (const ui::ListRow& row : CanList.Rows()) lines.Add(row.text);
  shop_.environment.printOptions = LoadPrintOptions(shop_.environment.Profile());
  ShowReport(shop_.desktop, shop_.environment,
             ListReport("Canned Notes List", shop_.environment.Today(), shop_.records.system.SysRec, lines),
             PaperWay::Printer);
}

void frmCanNoteList::Accept() {
  const std::optional<std::int32_t> place = SelectedNote();
  if (!place) return;
  CurrentNote = notes_[*place];
  if (!SaveIfChanged()) return;
  picked_ = true;
  Hide();
}

void frmCanNoteList::Cancel() {
  if (SaveIfChanged()) Hide();
}

bool frmCanNoteList::SaveIfChanged() {
  if (!changed_) return true;
  std::vector<Note> notes;
  for (const auto& [place, note] : notes_.Lines()) notes.push_back(note);
  const bool isStored = file_.Store(shop_.desktop, Caption(), LinesOf(notes));
  changed_ = false;
  if (isStored) return true;
  notes_.StartAnew();
  ListAll(file_.Lines());
  return false;
}

}  // namespace lantos
