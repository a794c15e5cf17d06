#include <QApplication>
#include <cstdio>

#include "bench/FirstPaint.h"
#include "frame/Clock.h"
#include "frame/UserSettings.h"
#include "start/Program.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/Text.h"

// The whole program, from its start to the first board painted.
int main(int count, char** arguments) {
  QApplication application(count, arguments);
  const QStringList own = QApplication::arguments().mid(1);
  try {
    lantos::SystemClock clock;
    lantos::UserSettings settings(lantos::UserSettings::PlatformDirectory());
    const std::string computerName = lantos::PlatformComputerName();
    lantos::ui::QtDesktop desktop;
    lantos::bench::FirstPaint watch(QStringLiteral("Lantos: "), [&desktop] {
      const lantos::ui::Form* list = desktop.FindForm("frmInvList");
      return list != nullptr && !list->Find("LoadProgress")->Visible();
    });
    application.installEventFilter(&watch);
    desktop.JoinRegistry(computerName);
    const lantos::Invocation invocation{lantos::ui::FromQt(own.join(QLatin1Char(' '))), computerName};
    return lantos::Program(desktop, clock, settings, invocation).Run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
