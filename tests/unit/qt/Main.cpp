#include <gtest/gtest.h>

#include <QApplication>

// Windows without a screen, for all tests of this program.
int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&count, arguments);
  const QApplication application(count, arguments);
  return RUN_ALL_TESTS();
}
