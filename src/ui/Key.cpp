#include "ui/Key.h"

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
    {"Space", "Space"},   {" ", "Space"},     {"Backspace", "Backspace"}, {"BackTab", "BackTab"},
};

std::string KeyName(std::string_view text) {
  for (const Spelling& spelling : kSpellings) {
    if (EqualsIgnoringCase(spelling.written, text)) return std::string(spelling.key);
  }
  if (text.size() == 1) return ToUpper(text);
  const bool isFunctionKey = text.size() <= 3 && text.size() >= 2 && ToUpper(text[0]) == 'F' &&
                             text.find_first_not_of("0123456789", 1) == std::string_view::npos;
  return isFunctionKey ? ToUpper(text) : std::string();
}

}  // namespace

KeyPress ParseKey(std::string_view text) {
  KeyPress press;
  for (;;) {
    const std::size_t plus = text.find('+');
    if (plus == std::string_view::npos || plus == 0 || plus + 1 == text.size()) break;
    const std::string_view word = text.substr(0, plus);
    if (EqualsIgnoringCase(word, "Ctrl") || EqualsIgnoringCase(word, "Control")) {
      press.control = true;
    } else if (EqualsIgnoringCase(word, "Alt")) {
      press.alt = true;
    } else if (EqualsIgnoringCase(word, "Shift")) {
      press.shift = true;
    } else {
      return {};
    }
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
