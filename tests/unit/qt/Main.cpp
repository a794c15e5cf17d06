#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryFile>

#include "ui/qt/Platform.h"

// Windows without a screen, for all tests of this program: in memory, on one that is large enough at any scale.
int main(int count, char** arguments) {
  lantos::ui::TameWindowSystem("unit_qt");
  QTemporaryFile screen;
  if (!screen.open()) return 1;
  screen.write(R"({"screens": [{"name": "test", "x": 0, "y": 0, "width": 2560, "height": 1920, "logicalDpi": 96,
                               "logicalBaseDpi": 96, "dpr": 1}]})");
  screen.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toLocal8Bit());
  ::testing::InitGoogleTest(&count, arguments);
  const QApplication application(count, arguments);
  return RUN_ALL_TESTS();
}
