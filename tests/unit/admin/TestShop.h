#pragma once

#include <string>
#include <string_view>

#include "TestDesktop.h"
#include "frame/Dates.h"
#include "frame/ScratchDirectory.h"
#include "shop/Shop.h"

namespace lantos::test {

// A Tuesday.
inline constexpr CivilDate kToday{2003, 9, 30};

// All that a screen is handed, on a scratch directory and with a clock that stands.
struct TestShop {
  TestShop() { environment.files.SetDataDir(directory.DataDir()); }

  DaySerial Today() const { return clock.Today(); }
  std::string Setting(std::string_view key) const { return settings.Get(key); }

  ScratchDirectory directory;
  StandingClock clock{LocalTime{ToSerial(kToday), (8 * 60 + 15) * 60 * 1000}};
  UserSettings settings{directory / "settings"};
  Environment environment{clock, settings};
  TestDesktop desktop;
  Records records{environment, desktop};
  ui::GlobalKeys keys{desktop};
  Shop shop{desktop, environment, records, keys};
};

inline void Press(ui::Form& form, std::string_view key) { form.PressKey(ui::ParseKey(key)); }

// What the person does: goes there, and types or clicks.
inline void Type(ui::TextBox& box, std::string_view text) {
  if (box.Owner().MoveFocus(&box)) box.DoType(text);
}
inline void Click(ui::Control& control) {
  ASSERT_TRUE(control.IsUsable()) << control.FullName();
  if (control.Owner().MoveFocus(&control)) control.DoClick();
}

}  // namespace lantos::test
