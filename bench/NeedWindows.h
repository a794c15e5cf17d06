#pragma once

#include <stdlib.h>

#include <QApplication>

#include "ui/qt/QtDesktop.h"

namespace lantos::bench {

// The one application of this program, with windows that nobody sees.
inline void NeedWindows() {
  static int count = 1;
  static char name[] = "lantos-bench";
  static char platform[] = "QT_QPA_PLATFORM=offscreen";
  static char* arguments[] = {name, nullptr};
  static const bool set = ::putenv(platform) == 0;
  static const QApplication* const application = new QApplication(count, arguments);
  (void)set;
  (void)application;
}

// The desktop of real windows. There is one a process, which outlives all that is put on it.
inline ui::QtDesktop& Windows() {
  NeedWindows();
  static ui::QtDesktop* const desktop = new ui::QtDesktop;
  return *desktop;
}

}  // namespace lantos::bench
