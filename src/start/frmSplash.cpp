#include "start/frmSplash.h"

namespace lantos {

namespace {

constexpr int kVersionEra = 2000;

}  // namespace

std::string VersionText() {
  return "Version " + std::to_string(LANTOS_VERSION_MAJOR + kVersionEra) + "." + std::to_string(LANTOS_VERSION_MINOR) +
         "." + std::to_string(LANTOS_VERSION_REVISION);
}

frmSplash::frmSplash(ui::Desktop& desktop) : Form(desktop, "frmSplash", "Lantos") {
  SetSize(6000, 3000);
  lblTitle.SetBold(true);
  lblTitle.SetFontSize(24);
  lblVersion.SetCaption(VersionText());
}

}  // namespace lantos
