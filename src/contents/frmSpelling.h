#pragma once

#include "screens/OkCancelForm.h"
#include "shop/Shop.h"
#include "spelling/Proofreading.h"

namespace lantos {

// The words of a text that nobody knows, one after the other, and what becomes of each. The screen closes by itself
// behind the last one; who cancels has decided nothing.
class frmSpelling : public OkCancelForm {
 public:
  frmSpelling(Shop& shop, Proofreading proofreading);

  ui::Label lblUnknown{*this, "lblUnknown"};
  ui::Label lblSentence{*this, "lblSentence", "Te&xt"};
  ui::TextBox txtSentence{*this, "txtSentence"};
  ui::Label lblWord{*this, "lblWord", "Change &to"};
  ui::TextBox txtWord{*this, "txtWord"};
  ui::Frame frameSuggestions{*this, "frameSuggestions", "Suggestions"};
  ui::ControlArray<ui::Button, 8, 1> cmdSuggestion{*this, "cmdSuggestion"};
  ui::Button cmdChange{*this, "cmdChange", "&Change"};
  ui::Button cmdChangeAll{*this, "cmdChangeAll", "Change &All"};
  ui::Button cmdIgnore{*this, "cmdIgnore", "&Ignore"};
  ui::Button cmdIgnoreAll{*this, "cmdIgnoreAll", "I&gnore All"};
  ui::Button cmdAdd{*this, "cmdAdd", "A&dd"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};

  // Behind the last word, when the screen was not cancelled.
  const Proofreading& Result() const { return proofreading_; }

 private:
  void OnActivate() override { txtWord.SetFocus(); }
  void Accept() override;

  void ChangeBy(void (Proofreading::*decide)(std::string_view replacement));
  void LeaveWordBy(void (Proofreading::*decide)());
  void Take(std::size_t suggestion);
  void ShowWord();
  void GoOn();

  Shop& shop_;
  Proofreading proofreading_;
  std::vector<std::string> suggestions_;
};

}  // namespace lantos
