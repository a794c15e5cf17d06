#include "contents/notes/frmNotes.h"

#include "contents/SpellCheck.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 8700;
constexpr ui::Twips kHeight = 4500;

std::string CaptionOf(NoteMode mode) {
  switch (mode) {
    case NoteMode::EstimateNote:
      return "Estimate Notes";
    case NoteMode::OnItsWay:
      return "Canned Estimate Notes";
    default:
      return "Canned Workorder Notes";
  }
}

}  // namespace

frmNotes::frmNotes(Shop& shop, NoteMode mode, const Note& note)
    : OkCancelForm(shop.desktop, shop.keys, "frmNotes", CaptionOf(mode)), CurrentNote(note), shop_(shop) {
  SetSize(kWidth, kHeight);
  txtDesc.SetMultiLine(true);
  txtDesc.SetSpokenName("Note");
  txtDesc.SetFace(ui::FontFace::FixedPitch);
  for (ui::TextBox& line : Desc) line.SetVisible(false);
  UseButtons(cmdSave, cmdCancel);
  cmdReset.OnClick = [this] { Reset(); };
  cmdReset.SetCausesValidation(false);
  cmdSpellCheck.OnClick = [this] { SpellCheckText(shop_, txtDesc); };
  cmdSave.SetToolTip("Save <F10>");
  cmdReset.SetToolTip("Reset <F2>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  cmdSpellCheck.SetToolTip("Check the spelling of the note");
  textAtLoad_ = TextOfNote(note);
  txtDesc.SetText(textAtLoad_);
  AskBeforeLosing(cmdCancel, txtDesc);
}

void frmNotes::OnKeyDown(ui::KeyPress& key) {
  OkCancelForm::OnKeyDown(key);
  if (!key.Is("F2")) return;
  key.Clear();
  Reset();
}

void frmNotes::Reset() {
  txtDesc.SetText(textAtLoad_);
  txtDesc.SetFocus();
  MarkUnchanged();
}

void frmNotes::Accept() {
  const FlowedNote flowed = FlowNote(txtDesc.Text());
  for (std::size_t i = 0; i < Desc.size(); ++i) Desc[i].SetText(flowed.lines[i]);
  if (!flowed.remainder.empty()) {
    shop_.desktop.Tell("Remaining characters truncated:\r\n" + flowed.remainder, Caption());
  }
  CurrentNote = flowed.lines;
  SaveAndHide();
}

}  // namespace lantos
