#include <QApplication>
#include <QMessageBox>
#include <cstdio>

#include "frame/Clock.h"
#include "frame/PlainWords.h"
#include "frame/UserSettings.h"
#include "start/Program.h"
#include "ui/qt/Platform.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/Text.h"

// The program for whoever sits in front of the screen.
namespace lantos {

namespace {

int RunProgram(const std::string& commandLine) {
  SystemClock clock;
  UserSettings settings(UserSettings::PlatformDirectory());
  const std::string computerName = PlatformComputerName();
  ui::QtDesktop desktop;
  desktop.JoinRegistry(computerName);
  return Program(desktop, clock, settings, Invocation{commandLine, computerName}).Run();
}

}  // namespace

}  // namespace lantos

int main(int count, char** arguments) {
  lantos::ui::TameWindowSystem("lantos");
  QApplication application(count, arguments);
  QApplication::setApplicationName(QStringLiteral("lantos"));
  QApplication::setApplicationDisplayName(QString());
  // What the window system has taken for itself is no longer among the arguments.
  const QStringList own = QApplication::arguments().mid(1);
  try {
    return lantos::RunProgram(lantos::ui::FromQt(own.join(QLatin1Char(' '))));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "lantos: %s\n", error.what());
    QMessageBox::critical(nullptr, QStringLiteral("Lantos"), QString::fromUtf8(lantos::WordsFor(error)));
    return 1;
  }
}
