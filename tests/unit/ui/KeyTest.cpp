#include "ui/Key.h"

#include <gtest/gtest.h>

namespace lantos::ui {
namespace {

TEST(Keys, AreTakenInAnyCaseWithTheirModifiers) {
  const KeyPress press = ParseKey("ctrl+ALT+v");
  EXPECT_EQ(press.key, "V");
  EXPECT_TRUE(press.control && press.alt && !press.shift);
  EXPECT_EQ(ParseKey("shift+f24").key, "F24");
  EXPECT_EQ(ParseKey("escape").key, "Esc");
}

TEST(Keys, WhatNoKeyboardHasIsNoKey) {
  for (const char* text : {"F0", "F01", "F25", "F99", "Ctrl+Ctrl+A", "Shift+Alt+Shift+F4", "Hyper+A", ""}) {
    EXPECT_EQ(ParseKey(text).key, "") << text;
  }
}

}  // namespace
}  // namespace lantos::ui
