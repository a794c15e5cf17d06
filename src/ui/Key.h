#pragma once

#include <string>
#include <string_view>

namespace lantos::ui {

enum class MouseButton { Left, Right };

// A key going down, with its shift keys. An event procedure that has served it clears it.
struct KeyPress {
  std::string key;  // "F10", "Esc", "Enter", "Insert", "Delete", "PgUp", "PgDn", "Up", "Tab", "Space", "A" … "Z", "0" …
  bool shift = false;
  bool control = false;
  bool alt = false;
  bool cleared = false;

  void Clear() { cleared = true; }
  bool Is(std::string_view name) const { return !cleared && !shift && !control && !alt && key == name; }
  bool IsControl(std::string_view name) const { return !cleared && control && !alt && !shift && key == name; }
  bool IsAlt(std::string_view name) const { return !cleared && alt && !control && !shift && key == name; }
  bool IsControlAlt(std::string_view name) const { return !cleared && control && alt && key == name; }
};

// The key that stands for the right button, under both its names.
inline bool IsMenuKey(const KeyPress& key) {
  return key.Is("Menu") || (key.key == "F10" && key.shift && !key.control && !key.alt && !key.cleared);
}

// "Ctrl+Alt+V", "Alt+F4", "a"; names in any case, letters become capitals. An empty key tells that the text is none.
KeyPress ParseKey(std::string_view text);

}  // namespace lantos::ui
