#pragma once

#include <stdlib.h>

#include <QApplication>

namespace lantos::bench {

// The window system, without a screen, for whoever measures windows. Made once.
inline void NeedWindows() {
  static int count = 1;
  static char name[] = "lantos-bench";
  static char platform[] = "QT_QPA_PLATFORM=offscreen";
  static char* arguments[] = {name, nullptr};
  static const bool set = ::putenv(platform) == 0;
  static const QApplication application(count, arguments);
  (void)set;
}

}  // namespace lantos::bench
