#pragma once

#include <string>
#include <vector>

#include "ui/Form.h"
#include "ui/driver/Place.h"

namespace lantos::ui {

// The form that has the person. Finds what a line names, refuses what a person couldn't do, and leaves the rest to the
// hand.
class FormPlace : public Place {
 public:
  FormPlace(Form& form, Hand& hand) : form_(form), hand_(hand) {}
  Json Describe() const override;
  void Perform(const Line& line) override;

 private:
  std::string Click(const Line& line);
  std::string ClickRow(const Line& line, Control& control, MouseButton button);
  std::string ClickHeading(const Line& line, Control& control);
  std::string Select(const Line& line);
  std::string Check(const Line& line);
  std::string Type(const Line& line);
  std::string Insert(const Line& line);
  std::string Leave(const Line& line);
  std::string PressKey(const Line& line);
  std::string Pick(const Line& line);
  std::string ChooseMenu(const Line& line);
  std::string Close(const Line& line);

  Control& UsableControl(const Line& line) const;
  Control& TextControl(const Line& line) const;
  std::vector<int> RowsToSelect(const Line& line, const Control& control) const;

  Form& form_;
  Hand& hand_;
};

}  // namespace lantos::ui
