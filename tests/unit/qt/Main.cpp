#include <gtest/gtest.h>

#include <QApplication>

#include "ui/qt/Platform.h"

// Windows without a screen, for all tests of this program.
int main(int count, char** arguments) {
  lantos::ui::TameWindowSystem("unit_qt");
  qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&count, arguments);
  const QApplication application(count, arguments);
  return RUN_ALL_TESTS();
}
