#include "start/frmSplash.h"

#include "frame/Version.h"

namespace lantos {

std::string VersionText() { return "Version " + ProgramVersion(); }

frmSplash::frmSplash(ui::Desktop& desktop) : Form(desktop, "frmSplash", "Lantos") {
  SetSize(6000, 3000);
  lblTitle.SetBold(true);
  lblTitle.SetFontSize(24);
  lblVersion.SetCaption(VersionText());
}

}  // namespace lantos
