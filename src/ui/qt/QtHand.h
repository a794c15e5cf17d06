#pragma once

#include "ui/Drive.h"
#include "ui/qt/QtDesktop.h"

namespace lantos::ui {

class WidgetPeer;

// The person's hand at the widgets themselves: the mouse and the keyboard as the window system would tell of them.
// What it reads is what the widgets show.
class QtHand : public Hand {
 public:
  explicit QtHand(QtDesktop& desktop) : desktop_(desktop) {}

  std::string Click(Control& control, MouseButton button) override;
  std::string DoubleClick(Control& control) override;
  std::string ClickRow(Control& control, int row, MouseButton button) override;
  std::string DoubleClickRow(Control& control, int row) override;
  std::string ClickHeading(Grid& grid, int column) override;
  std::string SelectRows(Control& control, const std::vector<int>& rows) override;
  std::string Check(Control& control, bool value) override;
  std::string CheckRow(ListBox& list, int row, bool value) override;
  std::string Type(Control& control, const std::string& text) override;
  std::string Insert(Control& control, const std::string& text, int at) override;
  std::string Leave(Form& form) override;
  std::string PressKey(Form& form, const KeyPress& key) override;
  std::string Pick(Control& control, DaySerial day, bool twice) override;
  std::string ChooseMenu(Form& form, MenuItem& item) override;
  std::string ClickForm(Form& form, MouseButton button) override;
  std::string Close(Form& form) override;
  ControlState Read(const Control& control) override;
  // Null: the topmost window, box or menu.
  std::string Screenshot(Form* form, const std::filesystem::path& to) override;
  void Settle() override;

 private:
  // The widget of a control that the person has gone to; null when the control that was left kept the focus, or what
  // it did has put this one out of reach.
  WidgetPeer* GoTo(Control& control);
  // Into the field as it is, character by character, for as long as it has the person.
  void SendText(Control& control, const std::string& text);
  std::string SelectInCombo(WidgetPeer& peer, int row);

  QtDesktop& desktop_;
};

}  // namespace lantos::ui
