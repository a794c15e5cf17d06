#include "screens/frmEnterPwd.h"

namespace lantos {

frmEnterPwd::frmEnterPwd(Shop& shop, std::string_view section)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmEnterPwd",
                "Enter " + std::string(section) + " Password") {
  SetDesignedSize(5400, 1800);
  Pwd.SetFace(ui::FontFace::FixedPitch);
  Pwd.SetPassword(true);
  Pwd.SetToolTip("The password of this section");
  cmdOK.SetToolTip("OK <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  UseButtons(cmdOK, cmdCancel);
}

void frmEnterPwd::Accept() {
  ok = true;
  Hide();
}

void frmEnterPwd::Cancel() {
  ok = false;
  Hide();
}

}  // namespace lantos
