#include "start/frmSplash.h"

#include "frame/Version.h"

namespace lantos {

namespace {

// In milliseconds: what a person doesn't wait for needs no telling.
constexpr std::int64_t kLong = 1000;

}  // namespace

std::string VersionText() { return "Version " + ProgramVersion(); }

frmSplash::frmSplash(ui::Desktop& desktop, Clock& clock)
    : Form(desktop, "frmSplash", "Lantos"), clock_(clock), begun_(clock.Now()) {
  SetSize(6000, 3600);
  lblTitle.SetBold(true);
  lblTitle.SetFontSize(24);
  lblVersion.SetCaption(VersionText());
  StartProgress.SetRange(kWorksOfAStart);
  lblWork.SetVisible(false);
  StartProgress.SetVisible(false);
  cmdStop.SetVisible(false);
  SetCancelButton(cmdStop);
  cmdStop.SetToolTip("Stop <Esc>");
  cmdStop.OnClick = [this] { stopped_ = true; };
}

void frmSplash::Next(std::string_view work) {
  lblWork.SetCaption(std::string(work));
  StartProgress.SetValue(++done_);
  Meanwhile();
}

void frmSplash::Meanwhile() {
  if (clock_.Now().MillisecondsSince(begun_) < kLong) return;
  if (!cmdStop.Visible()) {
    lblWork.SetVisible(true);
    StartProgress.SetVisible(true);
    cmdStop.SetVisible(true);
    cmdStop.SetFocus();
  }
  GetDesktop().ServeMeanwhile(*this, cmdStop);
  if (stopped_) throw StartStopped();
}

// The start ends where it can.
void frmSplash::OnQueryClose(bool& refuse) {
  refuse = true;
  stopped_ = true;
}

}  // namespace lantos
