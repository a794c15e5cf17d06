#include "admin/frmDisclaimer.h"

#include "frame/Text.h"
#include "records/Statements.h"

namespace lantos {

namespace {

// With CR LF between the lines, whatever stands between them.
std::string WithLineEnds(std::string_view text) {
  std::string result;
  for (const char c : ui::WithLineFeeds(text)) result += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return result;
}

}  // namespace

frmDisclaimer::frmDisclaimer(Shop& shop)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmDisclaimer", "Estimate Disclaimer"),
      shop_(shop) {
  SetDesignedSize(9600, 6600);
  txtDisclaimer.SetMultiLine(true);
  txtDisclaimer.SetFace(ui::FontFace::FixedPitch);
  txtDisclaimer.SetToolTip("Will print as shown.");
  UseButtons(cmdSave, cmdCancel);
  cmdReset.OnClick = [this] { ReadText(); };
  cmdReset.SetCausesValidation(false);
  cmdSave.SetToolTip("Save <F10>");
  cmdReset.SetToolTip("Reset <F2>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  AskBeforeLosing(cmdCancel, txtDisclaimer);
}

void frmDisclaimer::OnLoad() {
  SizedForm::OnLoad();
  ReadText();
}

void frmDisclaimer::ReadText() {
  const bool own = shop_.environment.files.FileExists(kEstimateDisclaimer);
  const bool any = own || shop_.environment.files.FileExists(kWorkorderDisclaimer);
  const std::string text =
      any ? ReadStatement(shop_.environment, own ? kEstimateDisclaimer : kWorkorderDisclaimer) : std::string();
  txtDisclaimer.SetText(text);
  MarkUnchanged();
}

void frmDisclaimer::OnKeyDown(ui::KeyPress& key) {
  SizedForm::OnKeyDown(key);
  if (!key.Is("F2")) return;
  key.Clear();
  ReadText();
}

// The screen stays, with nothing left to save.
void frmDisclaimer::Accept() {
  WriteStatement(shop_.environment, kEstimateDisclaimer, WithLineEnds(txtDisclaimer.Text()));
  MarkUnchanged();
}

}  // namespace lantos
