#pragma once

#include <chrono>
#include <string>

#include "ui/Controls.h"

namespace lantos::ui {

// The keyboard in lists, drop-downs and grids, the same on every desktop. Nothing is selected unless it looks so: where
// no row is, the first key of movement takes the first one (End the last), and so does Space.
class RowKeys {
 public:
  // Whether the key is one of the control's rows. A drop-down whose text is typed leaves the keys of a text alone.
  bool Press(Control& control, const KeyPress& key);

 private:
  bool PressInList(ListBox& list, const KeyPress& key);
  bool PressInCombo(ComboBox& combo, const KeyPress& key);
  bool PressInDropped(ComboBox& combo, const KeyPress& key);
  bool PressSpace(Control& control);
  bool Search(Control& control, int from, char letter, int& found);

  std::string searched_;  // the letters typed one behind the other
  const Control* searchedIn_ = nullptr;
  std::chrono::steady_clock::time_point lastLetter_;
};

// Arrows among the buttons, check boxes and options of one container: they go to the next one, and choose it when it
// is an option. True for all arrows.
bool PressButtonKey(Captioned& button, const KeyPress& key);

}  // namespace lantos::ui
