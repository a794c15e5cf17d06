#include "masters/inventory/BlankList.h"

#include <utility>

namespace lantos {

namespace {

// A part number may have an ampersand, which no letter of it is to be underlined for.
std::string AsCaption(const std::string& text) {
  std::string caption;
  for (const char character : text) caption += character == '&' ? "&&" : std::string(1, character);
  return caption;
}

}  // namespace

BlankList::BlankList(Shop& shop, std::string name, std::string caption, const std::string& heading)
    : Form(shop.desktop, std::move(name), std::move(caption)), shop_(shop) {
  SetSize(6000, 3000);
  lblHeading.SetCaption(AsCaption(heading));
  cmdClose.SetToolTip("Close <Esc>");
  cmdClose.OnClick = [this] { Hide(); };
  SetDefaultButton(cmdClose);
  SetCancelButton(cmdClose);
}

void BlankList::OnKeyDown(ui::KeyPress& key) { shop_.keys.HandleGlobalKeys(key, *this); }

}  // namespace lantos
