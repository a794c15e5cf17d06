#include "start/KeyPage.h"

#include <algorithm>

#include "frame/Text.h"
#include "ui/Mnemonic.h"
#include "ui/SpokenName.h"

namespace lantos {

namespace {

// The same wherever such a control stands.
constexpr std::string_view kEverywhere = R"(# Keys

`lantos-drive --keys` prints this page.

## On every screen

| key | what it does |
|---|---|
| Tab, Shift+Tab | to the next field, to the one before |
| Alt and the underlined letter | presses the button, opens the menu, goes to the field |
| Enter | presses the button that has the focus, else the default one; in the fields of labor, canned labor, parts and kits it goes to the next field |
| Arrows on a button, a box or an option | to the next one; an option is chosen by it |
| Space | presses the button, ticks the box |
| Menu, Shift+F10 | what the right button of the mouse opens |
| Alt+F4 | the close box of the window |
| F1 | the page of the guide on this screen; in the pay history, the pay stub |
| Ctrl+Alt+P | prints the screen |
| Ctrl+Alt+T | to Korvel |
| Ctrl+Alt+V | the vendors, to look at |

## In lists and grids

| key | what it does |
|---|---|
| Up, Down, PgUp, PgDn, Home, End | to another row; with none selected, the first of them takes row 1 (End the last) |
| Left, Right | scroll sideways |
| Letters | to the next row that begins with what is typed |
| Space | takes row 1 where none is selected; ticks the row's box |
| Shift with these, Ctrl+A | several rows, where several can be selected |
| F4, Alt+Down | open a drop-down; Enter takes the marked row, Esc leaves it |

## In searches

| key | what it does |
|---|---|
| Enter in a search field | searches; in canned labor it goes to what was found |
| Down in a search field | to what was found |
| Enter on what was found | takes it |

## In the preview of a paper

| key | what it does |
|---|---|
| PgUp, PgDn | a page back, a page on |
| Home, End | to the first page, to the last |
| Ctrl++, Ctrl+- | larger, smaller |
| Ctrl+P | prints |

## In the guide

| key | what it does |
|---|---|
| Tab, Shift+Tab | to the next link, to the one before |
| Enter | follows the link |
| Backspace | to the page before |

## In texts

| key | what it does |
|---|---|
| Ctrl+Left, Ctrl+Right | by words |
| Shift with keys of movement, Ctrl+A | mark |
| Ctrl+C, Ctrl+X, Ctrl+V | copy, cut, paste |
| Ctrl+Z, Ctrl+Y | take back, and do again |

## In dates

| key | what it does |
|---|---|
| Arrows in the calendar | a day, a week |
| PgUp, PgDn | a month |
| Home, End in the calendar | the ends of the month |
| Enter in the calendar | a click on the day |
| Left, Right in a date field | to the month, the day, the year |
| Up, Down in a date field | one more, one less |

)";

std::string MnemonicIn(std::string_view caption) {
  const char letter = ui::MnemonicOf(caption);
  return letter == '\0' ? std::string() : std::string("Alt+") + letter;
}

// "Add <Insert>, change <Enter>" tells two; "<Ctrl+U> This Unit" has its key ahead.
void ToldByToolTip(const ui::Control& control, std::vector<ToldKey>& keys) {
  std::string_view tip = control.ToolTip();
  for (std::size_t open = tip.find('<'); open != std::string_view::npos; open = tip.find('<')) {
    const std::size_t close = tip.find('>', open);
    if (close == std::string_view::npos) return;
    std::string_view what = tip.substr(0, open);
    while (what.starts_with(',') || what.starts_with(' ')) what.remove_prefix(1);
    if (what.empty()) what = TrimView(tip.substr(close + 1));
    keys.push_back({std::string(tip.substr(open + 1, close - open - 1)), Trim(what)});
    tip.remove_prefix(close + 1);
  }
}

void ToldByMenu(const ui::MenuItem& item, const std::string& path, std::vector<ToldKey>& keys) {
  if (!item.Visible()) return;
  const std::string mnemonic = MnemonicIn(item.Caption());
  const std::string way = path.empty() ? mnemonic : path + ", " + mnemonic.substr(mnemonic.find('+') + 1);
  if (!mnemonic.empty()) keys.push_back({way, "menu entry " + ui::WithoutMnemonic(item.Caption())});
  for (const auto& inner : item.Items()) ToldByMenu(*inner, way, keys);
}

const char* ActionOf(const ui::Control& control) {
  if (dynamic_cast<const ui::Button*>(&control) != nullptr) return "";
  return control.TakesFocus() && dynamic_cast<const ui::Captioned*>(&control) != nullptr ? "ticks " : "to ";
}

}  // namespace

std::vector<ToldKey> KeysOf(const ui::Form& form) {
  std::vector<ToldKey> keys;
  if (form.DefaultButton() != nullptr) keys.push_back({"Enter", ui::SpokenNameOf(*form.DefaultButton())});
  if (form.CancelButton() != nullptr) keys.push_back({"Esc", ui::SpokenNameOf(*form.CancelButton())});
  for (const ui::Control* control : form.Controls()) {
    // A field may come with what is entered elsewhere; a button that the form hides as it is made stays away.
    if (dynamic_cast<const ui::Button*>(control) != nullptr && !control->Visible()) continue;
    const std::size_t before = keys.size();
    ToldByToolTip(*control, keys);
    const auto* captioned = dynamic_cast<const ui::Captioned*>(control);
    const std::string_view label = ui::DesignedLabelOf(form.Name(), control->FullName());
    const std::string mnemonic = MnemonicIn(captioned != nullptr ? std::string_view(captioned->Caption()) : label);
    // A tool tip that tells the underlined letter says more of it than the caption.
    const bool isTold = std::any_of(keys.begin() + static_cast<std::ptrdiff_t>(before), keys.end(),
                                    [&](const ToldKey& told) { return told.key == mnemonic; });
    if (!mnemonic.empty() && !isTold) keys.push_back({mnemonic, ActionOf(*control) + ui::SpokenNameOf(*control)});
  }
  for (const auto& menu : form.Menus()) ToldByMenu(*menu, "", keys);
  return keys;
}

std::string KeyPage(const std::vector<std::unique_ptr<ui::Form>>& forms) {
  std::string page(kEverywhere);
  std::string last;
  for (const auto& form : forms) {
    const std::vector<ToldKey> keys = KeysOf(*form);
    if (keys.empty()) continue;
    const std::string heading = "## " + form->Caption() + " (`" + form->Name() + "`)\n\n";
    if (heading == last) continue;
    last = heading;
    page += heading + "| key | what it does |\n|---|---|\n";
    std::vector<std::string> rows;
    for (const ToldKey& key : keys) {
      const std::string row = "| " + key.key + " | " + key.what + " |\n";
      if (std::find(rows.begin(), rows.end(), row) != rows.end()) continue;
      rows.push_back(row);
      page += row;
    }
    page += "\n";
  }
  page.pop_back();
  return ToUtf8(page);
}

}  // namespace lantos
