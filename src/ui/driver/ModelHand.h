#pragma once

#include <functional>

#include "ui/Drive.h"

namespace lantos::ui {

// The person's hand where there are no widgets: on the plain controls. Clicking, typing or picking goes to the control
// first; when what had the focus keeps it, nothing else happens, as under a real mouse.
class ModelHand : public Hand {
 public:
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
  ControlState Read(const Control& control) override { return ReadControl(control); }
  std::string Screenshot(Form* form, const std::filesystem::path& to) override;
  void Settle() override;

  std::function<void()> onSettle;
};

}  // namespace lantos::ui
