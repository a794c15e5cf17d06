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

}  // namespace

frmCanNoteList::frmCanNoteList(Shop& shop)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmCanNoteList", "Canned Notes List"),
      shop_(shop) {
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
  notes_ = LoadCannedNotes(shop_.environment);
  ShowNotes(0);
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

void frmCanNoteList::ShowNotes(int selected) {
  CanList.Clear();
  for (std::size_t i = 0; i < notes_.size(); ++i) {
    const Note& note = notes_[i];
    if (IsDeleted(note)) continue;
    const auto index = static_cast<std::int32_t>(i);
    CanList.AddItem(Left(note[0], kNoteLineWidth), index);
    for (std::size_t line = 1; line < note.size(); ++line) {
      if (!note[line].empty()) CanList.AddItem(std::string(kIndent) + note[line], index);
    }
  }
  const int row = CanList.FindData(selected);
  if (row >= 0) CanList.SetListIndex(row);
}

int frmCanNoteList::SelectedNote() {
  if (CanList.ListIndex() >= 0) return CanList.ItemData(CanList.ListIndex());
  shop_.desktop.Tell("Must select entry in list.", Caption());
  return -1;
}

void frmCanNoteList::Add() {
  frmNotes editor(shop_, NoteMode::OfTheList, {});
  editor.ShowModal();
  if (!editor.Saved()) return;
  notes_.push_back(editor.CurrentNote);
  changed_ = true;
  ShowNotes(static_cast<int>(notes_.size()) - 1);
}

void frmCanNoteList::Edit() {
  const int index = SelectedNote();
  if (index < 0) return;
  Note& note = notes_[static_cast<std::size_t>(index)];
  frmNotes editor(shop_, NoteMode::OfTheList, note);
  editor.ShowModal();
  if (!editor.Saved()) return;
  note = editor.CurrentNote;
  changed_ = true;
  ShowNotes(index);
}

void frmCanNoteList::Delete() {
  const int index = SelectedNote();
  if (index < 0) return;
  Note& note = notes_[static_cast<std::size_t>(index)];
  if (shop_.desktop.Ask("Delete " + note[0] + "?", Caption(), ui::Buttons::YesNo) != ui::Answer::Yes) return;
  note[0] = kDeletedEntry;
  changed_ = true;
  ShowNotes(-1);
}

void frmCanNoteList::Print() {
  if (shop_.desktop.Ask("Print Canned Notes List?", Caption(), ui::Buttons::YesNo) != ui::Answer::Yes) return;
  ReportLines lines(false);
  for (const ui::ListRow& row : CanList.Rows()) lines.Add(row.text);
  shop_.environment.printOptions = LoadPrintOptions(shop_.environment.Profile());
  ShowReport(shop_.desktop, shop_.environment,
             ListReport("Canned Notes List", shop_.environment.Today(), shop_.records.system.SysRec, lines), false);
}

void frmCanNoteList::Accept() {
  const int index = SelectedNote();
  if (index < 0) return;
  CurrentNote = notes_[static_cast<std::size_t>(index)];
  SaveIfChanged();
  picked_ = true;
  Hide();
}

void frmCanNoteList::Cancel() {
  SaveIfChanged();
  Hide();
}

void frmCanNoteList::SaveIfChanged() {
  if (!changed_) return;
  SaveCannedNotes(shop_.environment, notes_);
  changed_ = false;
}

}  // namespace lantos
