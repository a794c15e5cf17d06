#pragma once

#include <functional>
#include <string>
#include <utility>

#include "frame/UserSettings.h"
#include "screens/UnsavedChanges.h"
#include "ui/Form.h"
#include "ui/GlobalKeys.h"

namespace lantos {

// The keyboard rule of every modal form: the keys of all screens first, then F10 is its OK or Save button and Esc its
// Cancel button. The window's close box is Cancel too. A screen that has something to lose says what the person can
// change, and is asked about on all three ways out.
class OkCancelForm : public ui::Form {
 public:
  // Whether the screen was left with what stands in it to be kept.
  bool Saved() const { return saved_; }

  // What SaveAndHide does before the screen closes, a write into the database say, and what it is that is stored:
  // "The part \"P-1\"". Where it throws, the screen stays as it is, to be saved again or left; whoever leaves it then
  // is told that this was not stored.
  struct Storing {
    std::function<void()> store;
    std::function<std::string()> name;
  };
  void StoreBy(Storing storing) { storing_ = std::move(storing); }
  // Thrown by a store that the person was asked about, and stopped to look at the screen again. Tells nothing more.
  struct BackToScreen {};

 protected:
  OkCancelForm(ui::Desktop& desktop, ui::GlobalKeys& keys, std::string name, std::string caption)
      : Form(desktop, std::move(name), std::move(caption)), keys_(keys) {}

  // Wires both buttons; Enter presses the accepting one.
  void UseButtons(ui::Button& accept, ui::Button& cancel);
  virtual void Accept() = 0;
  virtual void Cancel() { Hide(); }  // the person may leave
  void SaveAndHide();                // the end of Accept

  // Behind UseButtons, at the end of the constructor; whoever fills the fields says MarkUnchanged at the end.
  template <class... Fields>
  void AskBeforeLosing(ui::Button& cancel, Fields&... fields) {
    changes_.TurnCaptionOf(cancel);
    changes_.Watch(fields...);
  }
  void AskInsteadOfDropping(UnsavedChanges::Question question) { changes_.Ask(std::move(question)); }
  bool Changed() const { return changes_.Any(); }
  void MarkChanged() { changes_.Mark(); }
  void MarkUnchanged() { changes_.Forget(); }

  void OnKeyDown(ui::KeyPress& key) override;
  void OnQueryClose(bool& refuse) override;

 private:
  void Leave();
  void Store();

  ui::GlobalKeys& keys_;
  UnsavedChanges changes_{*this};
  Storing storing_;
  bool saved_ = false;
  bool refused_ = false;  // what was to be stored, at the last try
};

// The same with a size that is kept from one use to the next.
class SizedForm : public OkCancelForm {
 public:
  // Unloads, so that the size is kept whichever way the form goes.
  ~SizedForm() override;

 protected:
  SizedForm(ui::Desktop& desktop, ui::GlobalKeys& keys, UserSettings& settings, std::string name, std::string caption);

  void OnLoad() override;
  void OnUnload(bool& refuse) override;
  void OnResize() override;
  // The designed size; the form can't be drawn smaller than this.
  void SetDesignedSize(ui::Twips width, ui::Twips height);

 private:
  UserSettings& settings_;
  ui::Twips minimumWidth_ = 0;
  ui::Twips minimumHeight_ = 0;
};

}  // namespace lantos
