#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ui/Form.h"

namespace lantos {

// Whether a screen has been changed since it was filled or saved. Its cancel button reads "Close" until then and
// "Cancel" after, and whoever leaves a changed screen is asked.
class UnsavedChanges {
 public:
  explicit UnsavedChanges(ui::Form& form) : form_(form) {}
  UnsavedChanges(const UnsavedChanges&) = delete;

  // A mnemonic before the caption stays, and a tool tip that says "Close" follows it.
  void TurnCaptionOf(ui::Button& cancel);

  // What a person can change. Wired after the screen's own procedures, which run behind.
  template <class... Fields>
  void Watch(Fields&... fields) {
    (WatchOne(fields), ...);
  }
  void Mark();
  // What stands there is what is kept.
  void Forget();
  bool Any() const { return any_; }

  // The question, and which of its answers keeps the person on the screen.
  struct Question {
    std::string text = "Discard changes?";
    ui::Buttons buttons = ui::Buttons::YesNo;
  };
  void Ask(Question question) { question_ = std::move(question); }
  // True when there is nothing to lose, or the person lets it go.
  bool MayBeDropped() const;

  // While it lives, what is put into controls isn't the person's doing.
  class Quiet {
   public:
    explicit Quiet(UnsavedChanges& changes) : changes_(changes) { ++changes_.quiet_; }
    ~Quiet() { --changes_.quiet_; }
    Quiet(const Quiet&) = delete;

   private:
    UnsavedChanges& changes_;
  };

 private:
  void WatchOne(ui::TextBox& box);
  void WatchOne(ui::ComboBox& combo);
  void WatchOne(ui::ListBox& list);  // the ticks of its rows
  void WatchOne(ui::CheckBox& box);
  void WatchOne(ui::OptionButton& option);
  void WatchOne(ui::DTPicker& picker);
  template <class Kind, std::size_t Count, int First>
  void WatchOne(ui::ControlArray<Kind, Count, First>& fields) {
    for (Kind& field : fields) WatchOne(field);
  }
  void TurnCaption();

  ui::Form& form_;
  ui::Button* cancel_ = nullptr;
  std::string mnemonic_;
  bool tipFollows_ = false;
  Question question_;
  std::vector<std::function<void()>> keepShown_;  // a click on the row that is shown changes nothing
  int quiet_ = 0;
  bool any_ = false;
};

}  // namespace lantos
