#pragma once

#include <stdexcept>

#include "frame/Dates.h"
#include "ui/Form.h"
#include "ui/GlobalKeys.h"

namespace lantos::fuzz {

// One control of each kind, with event procedures of the sorts that screens have: a box, a popup menu, a second form,
// an error, a field that keeps the focus, controls that come and go, a timer. Every event counts up.
class SmallForm : public ui::Form {
 public:
  SmallForm(ui::Desktop& desktop, int level) : Form(desktop, level == 0 ? "frmSmall" : "frmInner", "Small") {
    FillControls();
    FillMenus();
    CountEvents();
    cmdBox.OnClick = [this] {
      ++events;
      const ui::Answer answer = GetDesktop().Ask("Go on?", "Question", ui::Buttons::YesNoCancel, ui::Icon::Question);
      txtName.SetText(std::string(ui::NameOf(answer)));
    };
    // An inner form opens none: the depth of what waits is the program's own.
    cmdForm.OnClick = [this, level] {
      ++events;
      if (level == 0) SmallForm(GetDesktop(), level + 1).ShowModal();
    };
    cmdError.OnClick = [this] {
      ++events;
      throw std::runtime_error("the disk is full \xFC");
    };
    chkTick.OnClick = [this] {
      ++events;
      fraBox.SetVisible(chkTick.Value());
      txtName.SetLocked(chkTick.Value());
      cboText.SetEnabled(!chkTick.Value());
    };
    cmdClose.OnClick = [this] { Hide(); };
    SetCancelButton(cmdClose);
    SetDefaultButton(cmdBox);
  }

  long events = 0;

  ui::TextBox txtName{*this, "txtName"};
  ui::TextBox txtNotes{*this, "txtNotes"};
  ui::Button cmdBox{*this, "cmdBox", "&Box"};
  ui::Button cmdForm{*this, "cmdForm", "&Form"};
  ui::Button cmdError{*this, "cmdError", "&Error"};
  ui::CheckBox chkTick{*this, "chkTick", "&Tick"};
  ui::OptionButton optOne{*this, "optOne", "&One"};
  ui::OptionButton optTwo{*this, "optTwo", "T&wo"};
  ui::ListBox list{*this, "List1", 3};
  ui::ListBox lstMulti{*this, "lstMulti"};
  ui::ListBox lstBoxes{*this, "lstBoxes"};
  ui::ComboBox cboText{*this, "cboText"};
  ui::ComboBox cboDrop{*this, "cboDrop"};
  ui::Grid grid{*this, "DataGrid1"};
  ui::MonthView calendar{*this, "MonthView1"};
  ui::DTPicker picker{*this, "DTPicker1"};
  ui::Label lblName{*this, "lblName", "&Name"};
  ui::Frame fraBox{*this, "fraBox", "Box"};
  ui::TextBox txtInside{*this, "txtInside"};
  ui::ProgressBar bar{*this, "ProgressBar1"};
  ui::Timer timer{*this, "Timer1"};
  ui::Button cmdClose{*this, "cmdClose", "Close"};

 protected:
  void OnQueryClose(bool& refuse) override {
    ++events;
    refuse = true;
    Hide();
  }
  void OnMouseUp(ui::MouseButton) override { ++events; }
  void OnKeyDown(ui::KeyPress& key) override {
    ++events;
    if (keys_.HandleGlobalKeys(key, *this)) return;
    if (key.Is("F10")) {
      key.Clear();
      cmdBox.DoClick();
    }
  }

 private:
  void FillControls() {
    fraBox.Holds(txtInside, optTwo);
    txtName.SetMaxLength(20);
    txtName.SetUpperCase(true);
    txtNotes.SetMultiLine(true);
    cboText.SetEditable(true);
    lstMulti.SetMultiSelect(true);
    lstBoxes.SetCheckBoxes(true);
    for (const char* row : {"alpha", "alphabet", "b\xEAta", ""}) {
      list.AddItem(row, list.ListCount() + 10);
      lstMulti.AddItem(row);
      lstBoxes.AddItem(row);
      cboText.AddItem(row);
      cboDrop.AddItem(row);
    }
    grid.SetColumns({{"VIN", "Vehicle", false}, {"Year", "Yr", true}});
    grid.SetRows({{{"1ABC", "1999"}, 5}, {{"2DEF", "2001"}, 6}});
    calendar.SetValue(ToSerial({2003, 9, 30}));
    picker.SetValue(ToSerial({2003, 9, 30}));
    bar.SetRange(10);
    timer.SetInterval(250);
    cmdClose.SetCausesValidation(false);
  }

  void FillMenus() {
    ui::MenuItem& file = AddMenu("mnuFile", "&File");
    file.Add("mnuTimer", "&Timer", [this] {
      ++events;
      bar.SetValue(0);
      timer.SetEnabled(!timer.Enabled());
    });
    file.Add("mnuGray", "Gray").SetEnabled(false);
    ui::MenuItem& popup = AddMenu("mnuPopup", "popup");
    popup.SetVisible(false);
    for (int i = 0; i < 3; ++i)
      popup
          .Add(
              "mnuStat", "&Status", [this] { ++events; }, i)
          .SetChecked(i == 1);
    popup.Add("mnuShorter", "S&horter", [this] {
      ++events;
      if (list.ListCount() > 0) list.RemoveItem(0);
      grid.SetRows({});
    });
  }

  void CountEvents() {
    for (ui::Control* control : Controls()) {
      control->OnClick = control->OnDoubleClick = control->OnGotFocus = control->OnLostFocus = [this] { ++events; };
      control->OnKeyDown = [this](ui::KeyPress&) { ++events; };
      control->OnMouseUp = [this](ui::MouseButton) { ++events; };
    }
    list.OnMouseUp = [this](ui::MouseButton button) {
      ++events;
      if (button == ui::MouseButton::Right) GetDesktop().PopupMenu(*this, *FindMenu("mnuPopup"));
    };
    txtInside.OnValidate = [this](bool& keepFocus) {
      ++events;
      keepFocus = txtInside.Text() == "no";
    };
    txtNotes.OnKeyPress = [this](char& character) {
      ++events;
      if (character == 'x') character = '\0';
    };
    txtName.OnChange = cboText.OnChange = picker.OnChange = [this] { ++events; };
    lstBoxes.OnItemCheck = [this](int) { ++events; };
    grid.OnRowChange = [this] { ++events; };
    grid.OnHeadClick = [this](int) { ++events; };
    calendar.OnDateClick = calendar.OnDateDoubleClick = [this](DaySerial) { ++events; };
    // Ends by itself: a long wait would tick millions of times.
    timer.OnTimer = [this] {
      ++events;
      bar.SetValue(bar.Value() + 1);
      if (bar.Value() >= bar.Maximum()) timer.SetEnabled(false);
    };
  }

  ui::GlobalKeys keys_{GetDesktop()};
};

}  // namespace lantos::fuzz
