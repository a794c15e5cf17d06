#pragma once

#include <string>

#include "frame/UserSettings.h"
#include "ui/Form.h"
#include "ui/GlobalKeys.h"

namespace lantos {

// The keyboard rule of every modal form: the keys of all screens first, then F10 is its OK or Save button and Esc its
// Cancel button. The window's close box is Cancel too.
class OkCancelForm : public ui::Form {
 protected:
  OkCancelForm(ui::Desktop& desktop, ui::GlobalKeys& keys, std::string name, std::string caption)
      : Form(desktop, std::move(name), std::move(caption)), keys_(keys) {}

  // Wires both buttons; Enter presses the accepting one.
  void UseButtons(ui::Button& accept, ui::Button& cancel);
  virtual void Accept() = 0;
  virtual void Cancel() { Hide(); }

  void OnKeyDown(ui::KeyPress& key) override;
  void OnQueryClose(bool& refuse) override;

 private:
  ui::GlobalKeys& keys_;
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
