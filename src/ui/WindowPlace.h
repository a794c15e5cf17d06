#pragma once

#include "frame/UserSettings.h"
#include "ui/Form.h"

namespace lantos::ui {

// "<form>Width", "<form>Height", "<form>State" in the program's own settings. A minimised form stores nothing, a
// maximised one its state alone. No position is kept for these forms.
void SaveWindow(UserSettings& settings, const Form& form);
void RestoreWindow(const UserSettings& settings, Form& form);
// The same for what is no form, as the window of a report, under its caption: " Top", " Left", " Width", " Height",
// " State".
struct ControlPlace {
  Twips top = 0, left = 0, width = 0, height = 0;
  int state = 0;
};
void SaveControlPlace(UserSettings& settings, const std::string& caption, const ControlPlace& place);
ControlPlace RestoreControlPlace(const UserSettings& settings, const std::string& caption, ControlPlace current);
// Grows a form in normal state to the minimum; below 1 it is 640 by 480 pixels.
void FitMinimumSize(Form& form, Twips minimumWidth, Twips minimumHeight);

}  // namespace lantos::ui
