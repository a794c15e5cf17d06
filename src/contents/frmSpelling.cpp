#include "contents/frmSpelling.h"

#include <algorithm>
#include <utility>

#include "frame/Text.h"
#include "spelling/OwnWords.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 9000;
constexpr ui::Twips kHeight = 5100;

// A button shows it behind its digit.
bool CanBeShown(const std::string& suggestion) {
  return suggestion.size() <= OwnWords::kLongestWord && suggestion.find('&') == std::string::npos;
}

}  // namespace

frmSpelling::frmSpelling(Shop& shop, Proofreading proofreading)
    : OkCancelForm(shop.desktop, shop.keys, "frmSpelling", "Spell Check"),
      shop_(shop),
      proofreading_(std::move(proofreading)) {
  SetSize(kWidth, kHeight);
  txtSentence.SetMultiLine(true);
  txtSentence.SetLocked(true);
  txtWord.SetMaxLength(OwnWords::kLongestWord);
  for (std::size_t i = 0; i < cmdSuggestion.size(); ++i) {
    ui::Button& button = cmdSuggestion[i];
    frameSuggestions.Holds(button);
    const std::string digit = std::to_string(i + 1);
    button.SetCaption("&" + digit);
    button.SetToolTip("Change to this suggestion <Alt+" + digit + ">");
    button.OnClick = [this, i] { Take(i); };
  }
  UseButtons(cmdChange, cmdCancel);
  cmdChangeAll.OnClick = [this] { ChangeBy(&Proofreading::ChangeAll); };
  cmdIgnore.OnClick = [this] { LeaveWordBy(&Proofreading::Ignore); };
  cmdIgnoreAll.OnClick = [this] { LeaveWordBy(&Proofreading::IgnoreAll); };
  cmdAdd.OnClick = [this] { LeaveWordBy(&Proofreading::Learn); };
  cmdChange.SetToolTip("Change this word <F10>");
  cmdChangeAll.SetToolTip("Change this word wherever it stands from here on");
  cmdIgnore.SetToolTip("Leave this word as it is");
  cmdIgnoreAll.SetToolTip("Leave this word as it is wherever it stands");
  cmdAdd.SetToolTip("Leave this word, and know it from now on");
  cmdCancel.SetToolTip("Leave the whole text as it was <Esc>");
  ShowWord();
}

void frmSpelling::ShowWord() {
  const std::string word = proofreading_.Word();
  lblUnknown.SetCaption("Not in the dictionary: " + word);
  txtSentence.SetText(proofreading_.Sentence());
  suggestions_ = proofreading_.Suggestions();
  std::erase_if(suggestions_, [](const std::string& suggestion) { return !CanBeShown(suggestion); });
  for (std::size_t i = 0; i < cmdSuggestion.size(); ++i) {
    const bool isThere = i < suggestions_.size();
    cmdSuggestion[i].SetVisible(isThere || proofreading_.Done());
    if (isThere) cmdSuggestion[i].SetCaption("&" + std::to_string(i + 1) + " " + suggestions_[i]);
  }
  txtWord.SetText(suggestions_.empty() ? word : suggestions_[0]);
}

void frmSpelling::GoOn() {
  if (proofreading_.Done()) return SaveAndHide();
  ShowWord();
  txtWord.SetFocus();
}

void frmSpelling::LeaveWordBy(void (Proofreading::*decide)()) {
  (proofreading_.*decide)();
  GoOn();
}

void frmSpelling::Take(std::size_t suggestion) {
  if (suggestion >= suggestions_.size()) return;
  txtWord.SetText(suggestions_[suggestion]);
  txtWord.SetFocus();
}

void frmSpelling::Accept() { ChangeBy(&Proofreading::Change); }

void frmSpelling::ChangeBy(void (Proofreading::*decide)(std::string_view replacement)) {
  const std::string word = Trim(txtWord.Text());
  if (word.empty()) {
    shop_.desktop.Tell("The word can not be blank", Caption());
    return txtWord.SetFocus();
  }
  (proofreading_.*decide)(word);
  GoOn();
}

}  // namespace lantos
