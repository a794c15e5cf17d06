#include "help/frmAbout.h"

#include "help/AboutText.h"
#include "ui/HelpDesk.h"

namespace lantos {

frmAbout::frmAbout(Shop& shop, EstimateDatabase& database)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmAbout", "About Lantos"),
      shop_(shop),
      database_(database) {
  SetDesignedSize(9000, 5400);
  lblTitle.SetBold(true);
  txtAbout.SetMultiLine(true);
  txtAbout.SetLocked(true);
  txtAbout.SetSpokenName("What this copy is and works on");
  cmdCopy.SetToolTip("Copies all of it, to be pasted into a message <F2>");
  cmdClose.SetToolTip("Close <Esc>, close <F10>");
  UseButtons(cmdClose, cmdClose);
  cmdCopy.OnClick = [this] { Copy(); };
}

void frmAbout::OnLoad() {
  SizedForm::OnLoad();
  const ui::Hourglass hourglass(shop_.desktop);
  txtAbout.SetText(AboutText(shop_, database_));
}

void frmAbout::OnKeyDown(ui::KeyPress& key) {
  SizedForm::OnKeyDown(key);
  if (!key.Is("F2")) return;
  key.Clear();
  Copy();
}

void frmAbout::Copy() {
  ui::HelpDesk* desk = ui::HelpDeskOf(GetDesktop());
  if (desk == nullptr) return;
  desk->Copy(txtAbout.Text());
  lblCopied.SetCaption("Copied.");
}

}  // namespace lantos
