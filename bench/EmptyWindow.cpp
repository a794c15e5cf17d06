#include <QApplication>
#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QListWidget>

#include "bench/FirstPaint.h"

// The least that a window with the board's calendar and lists can be.
int main(int count, char** arguments) {
  QApplication application(count, arguments);
  QWidget window;
  window.setWindowTitle(QStringLiteral("Empty"));
  window.resize(1024, 768);
  auto* layout = new QHBoxLayout(&window);
  layout->addWidget(new QCalendarWidget);
  for (int i = 0; i < 7; ++i) layout->addWidget(new QListWidget);
  lantos::bench::FirstPaint watch(QStringLiteral("Empty"));
  application.installEventFilter(&watch);
  window.show();
  return QApplication::exec();
}
