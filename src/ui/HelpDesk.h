#pragma once

#include <functional>
#include <string>

namespace lantos::ui {

class Desktop;
class Form;
struct KeyPress;

// What a desktop has for a person who asks for help. One without it answers no F1.
class HelpDesk {
 public:
  virtual ~HelpDesk() = default;
  // As if the text had been copied from a field.
  virtual void Copy(const std::string& text) = 0;
  // The library that draws the windows, with its version; empty where none does.
  virtual std::string Library() const = 0;

  // F1 on a screen that has no use of its own for it.
  std::function<void(Form&)> showHelp;
};

// Null where the desktop has none.
HelpDesk* HelpDeskOf(Desktop& desktop);
void ShowHelp(Form& form);

// F1 on a form that has left it; and what a page with links makes of Tab and Enter, ahead of what they do elsewhere.
// True when it was one of these.
bool PressHelpKey(Form& form, const KeyPress& key);

}  // namespace lantos::ui
