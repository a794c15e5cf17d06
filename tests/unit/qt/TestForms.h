#pragma once

#include "qt/ScriptedPerson.h"
#include "ui/Form.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/QtHand.h"

namespace lantos::test {

// A form of the test's own behind the design of frmEnterDir: a text box, a drop-down, a list and two buttons.
class Field : public ui::Form {
 public:
  explicit Field(ui::Desktop& desktop) : Form(desktop, "frmEnterDir", "Field") {
    cmdCancel.SetCausesValidation(false);
    SetDefaultButton(cmdOK);
    SetCancelButton(cmdCancel);
    cmdOK.OnClick = [this] { happened.push_back("ok"); };
    cmdCancel.OnClick = [this] { Hide(); };
  }

  ui::Label lblDirectory{*this, "lblDirectory", "&Text"};
  ui::TextBox TextString{*this, "TextString"};
  ui::ComboBox Drive1{*this, "Drive1"};
  ui::ListBox Dir1{*this, "Dir1"};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

  std::vector<std::string> happened;
  bool takesAltF4 = false;

 private:
  void OnKeyDown(ui::KeyPress& key) override {
    const bool isToggle = takesAltF4 && key.IsAlt("F4");
    if (!key.Is("F10") && !isToggle) return;
    happened.push_back(isToggle ? "Alt+F4" : "F10");
    key.Clear();
  }
  void OnMouseUp(ui::MouseButton button) override {
    happened.push_back(button == ui::MouseButton::Right ? "right on the form" : "left on the form");
  }
};

// The same on real windows, with a person who does what the test lays down.
struct Bench {
  Bench() {
    for (const char* text : {"one", "two", "three"}) form.Dir1.AddItem(text);
  }

  ui::FormWindow& Window() { return *windows.WindowOf(form); }
  template <class Widget>
  Widget& WidgetOf(const ui::Control& control) {
    return dynamic_cast<Widget&>(Window().PeerOf(control)->Widget());
  }
  void Press(std::string_view key) { hand.PressKey(form, ui::ParseKey(key)); }

  ScriptedPerson person;
  ui::QtDesktop windows{&person};
  ui::QtHand hand{windows};
  Field form{windows};
};

}  // namespace lantos::test
