#include "masters/inventory/BlankList.h"

#include <utility>

namespace lantos {

BlankList::BlankList(Shop& shop, std::string name, std::string caption, const std::string& heading)
    : Form(shop.desktop, std::move(name), std::move(caption)), shop_(shop) {
  SetSize(6000, 3000);
  lblHeading.SetCaption(heading);
  cmdClose.SetToolTip("Close <Esc>");
  cmdClose.OnClick = [this] { Hide(); };
  SetDefaultButton(cmdClose);
  SetCancelButton(cmdClose);
}

void BlankList::OnKeyDown(ui::KeyPress& key) { shop_.keys.HandleGlobalKeys(key, *this); }

}  // namespace lantos
