#pragma once

#include "contents/notes/NoteText.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

enum class NoteMode {
  EstimateNote,  // added to or changed on an estimate
  OnItsWay,      // from the shop's list, to be fitted to an estimate
  OfTheList,     // of the shop's list itself
};

// The editor of one note: a text that becomes up to eight lines when it is saved.
class frmNotes : public OkCancelForm {
 public:
  frmNotes(Shop& shop, NoteMode mode, const Note& note);

  ui::TextBox txtDesc{*this, "txtDesc"};
  ui::ControlArray<ui::TextBox, kCannedLines, 1> Desc{*this, "Desc"};  // the lines, never shown
  ui::Label lblMax{*this, "lblMax", "Max 8 lines of 64 characters each -- extra characters will be truncated."};
  ui::Button cmdSpellCheck{*this, "cmdSpellCheck", "Spell &Check"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdReset{*this, "cmdReset", "&Reset"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};

  Note CurrentNote;  // as it came, and as it was saved

 private:
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;
  void Reset();

  Shop& shop_;
  std::string textAtLoad_;
};

}  // namespace lantos
