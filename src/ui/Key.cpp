#include "ui/Key.h"

#include <utility>

#include "frame/Text.h"

namespace lantos::ui {

namespace {

struct Spelling {
  std::string_view written;
  std::string_view key;
};
constexpr Spelling kSpellings[] = {
    {"Escape", "Esc"},    {"Esc", "Esc"},     {"Return", "Enter"},        {"Enter", "Enter"},     {"Ins", "Insert"},
    {"Insert", "Insert"}, {"Del", "Delete"},  {"Delete", "Delete"},       {"PageUp", "PgUp"},     {"PgUp", "PgUp"},
    {"PageDown", "PgDn"}, {"PgDn", "PgDn"},   {"PgDown", "PgDn"},         {"Up", "Up"},           {"Down", "Down"},
    {"Left", "Left"},     {"Right", "Right"}, {"Home", "Home"},           {"End", "End"},         {"Tab", "Tab"},
    {"Space", "Space"},   {" ", "Space"},     {"Backspace", "Backspace"}, {"BackTab", "BackTab"}, {"Menu", "Menu"},
};

constexpr int kFunctionKeys = 24;

// False when it is held already.
bool Hold(bool& modifier) { return !std::exchange(modifier, true); }

std::string KeyName(std::string_view text) {
  for (const Spelling& spelling : kSpellings) {
    if (EqualsIgnoringCase(spelling.written, text)) return std::string(spelling.key);
  }
  if (text.size() == 1) return ToUpper(text);
  for (int number = 1; number <= kFunctionKeys; ++number) {
    if (EqualsIgnoringCase(text, "F" + std::to_string(number))) return ToUpper(text);
  }
  return {};
}

}  // namespace

KeyPress ParseKey(std::string_view text) {
  KeyPress press;
  for (;;) {
    const std::size_t plus = text.find('+');
    if (plus == std::string_view::npos || plus == 0 || plus + 1 == text.size()) break;
    const std::string_view word = text.substr(0, plus);
    const bool isControl = EqualsIgnoringCase(word, "Ctrl") || EqualsIgnoringCase(word, "Control");
    const bool isHeld = (isControl && Hold(press.control)) || (EqualsIgnoringCase(word, "Alt") && Hold(press.alt)) ||
                        (EqualsIgnoringCase(word, "Shift") && Hold(press.shift));
    if (!isHeld) return {};
    text.remove_prefix(plus + 1);
  }
  press.key = KeyName(text);
  if (press.key == "BackTab") {
    press.key = "Tab";
    press.shift = true;
  }
  return press;
}

}  // namespace lantos::ui
