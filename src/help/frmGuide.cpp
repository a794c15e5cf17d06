#include "help/frmGuide.h"

#include "frame/Text.h"
#include "ui/Documents.h"

namespace lantos {

frmGuide::frmGuide(ui::Desktop& desktop, ui::GlobalKeys& keys, UserSettings& settings, std::string screen)
    : SizedForm(desktop, keys, settings, "frmGuide", "Guide"), screen_(std::move(screen)) {
  SetDesignedSize(10200, 8400);
  page.SetSpokenName("Page of the guide");
  cmdBack.SetToolTip("To the page before <Alt+Left>");
  cmdContents.SetToolTip("All pages <Alt+Home>");
  txtFind.SetToolTip("Words to look for in all pages <Ctrl+F>");
  cmdFind.SetToolTip("The next page that has them <F3>");
  cmdClose.SetToolTip("Close <Esc>, close <F10>");
  UseButtons(cmdClose, cmdClose);
  SetDefaultButton(cmdFind);
  page.OnFollow = [this](const std::string& target) { Follow(target); };
  cmdBack.OnClick = [this] { GoBack(); };
  cmdContents.OnClick = [this] { GoTo(0); };
  cmdFind.OnClick = [this] { Find(); };
}

void frmGuide::OnLoad() {
  SizedForm::OnLoad();
  guide_ = Guide(GuideText());
  Show({guide_.PageOf(screen_).value_or(0)});
}

void frmGuide::OnKeyDown(ui::KeyPress& key) {
  SizedForm::OnKeyDown(key);
  ui::Button* button = nullptr;
  if (key.IsAlt("Left") || (key.Is("Backspace") && page.HasFocus())) button = &cmdBack;
  if (key.IsAlt("Home")) button = &cmdContents;
  if (key.Is("F3")) button = &cmdFind;
  if (button != nullptr) {
    key.Clear();
    button->OnClick();
  } else if (key.IsControl("F")) {
    key.Clear();
    txtFind.SetFocus();
  }
}

void frmGuide::ShowPageOf(std::string_view screen) { GoTo(guide_.PageOf(screen).value_or(0)); }

void frmGuide::GoTo(std::size_t page_) {
  if (page_ == onShow_) return;
  way_.push_back({onShow_, page.MarkedLink()});
  Show({page_});
}

void frmGuide::Show(const Place& place) {
  onShow_ = place.page;
  const GuidePage& shown = guide_.Pages()[onShow_];
  SetCaption("Guide - " + shown.title);
  lblFound.SetCaption("");
  page.SetSought("");
  page.SetText(shown.text);
  page.MarkLink(place.link);
}

// Within the guide, or to an address.
void frmGuide::Follow(const std::string& target) {
  if (target.starts_with('#')) {
    if (const auto found = guide_.PageAt(target.substr(1))) GoTo(*found);
  } else if (ui::IsAddress(target)) {
    GetDesktop().OpenDocument(target);
  }
}

void frmGuide::GoBack() {
  if (way_.empty()) return GetDesktop().Beep();
  const Place place = way_.back();
  way_.pop_back();
  Show(place);
}

void frmGuide::Find() {
  const std::string words = Trim(txtFind.Text());
  if (words.empty()) return txtFind.SetFocus();
  const auto found = guide_.Find(words, onShow_);
  if (found) GoTo(*found);
  page.SetSought(found ? words : "");
  lblFound.SetCaption(found ? "" : "Not in the guide.");
}

}  // namespace lantos
