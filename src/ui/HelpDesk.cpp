#include "ui/HelpDesk.h"

#include "ui/Browser.h"
#include "ui/Form.h"

namespace lantos::ui {

HelpDesk* HelpDeskOf(Desktop& desktop) { return dynamic_cast<HelpDesk*>(&desktop); }

void ShowHelp(Form& form) {
  const HelpDesk* desk = HelpDeskOf(form.GetDesktop());
  if (desk != nullptr && desk->showHelp) desk->showHelp(form);
}

bool PressHelpKey(Form& form, const KeyPress& key) {
  if (key.Is("F1")) {
    form.Run([&] { ShowHelp(form); });
    return true;
  }
  auto* page = dynamic_cast<Browser*>(form.Focus());
  return page != nullptr && page->DoKey(key);
}

}  // namespace lantos::ui
