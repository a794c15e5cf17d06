#include "ui/GlobalKeys.h"

namespace lantos::ui {

namespace {

constexpr std::string_view kMainApplicationCaption = "Korvel: ";

}  // namespace

bool GlobalKeys::HandleGlobalKeys(KeyPress& key, Form& form) {
  if (key.IsControlAlt("P")) {
    desktop_.PrintScreen(form);
  } else if (key.IsControlAlt("T")) {
    if (!desktop_.FindWindowByTitle(kMainApplicationCaption, FoundWindow::BroughtUp)) {
      desktop_.Tell("Korvel is not currently running.", "Toggle to Korvel");
    }
  } else if (key.IsControlAlt("V") && form.Name().starts_with("frmVendor")) {
    desktop_.Beep();
  } else if (key.IsControlAlt("V") && openVendorList) {
    openVendorList();
  } else {
    return false;
  }
  key.Clear();
  return true;
}

void SetListExtent(ListBox& list) {
  Desktop& desktop = list.Owner().GetDesktop();
  list.SetHorizontalExtent(list.Widest([&](const std::string& line) { return desktop.TextWidth(list, line + "  "); }));
}

void ApplyFontFactor(Form& form, int fontFactor) {
  const int size = fontFactor * 2 + 6;
  for (Control* control : form.Controls()) {
    if (dynamic_cast<Timer*>(control) == nullptr && dynamic_cast<ProgressBar*>(control) == nullptr) {
      control->SetFontSize(size);
    }
  }
}

}  // namespace lantos::ui
