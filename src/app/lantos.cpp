#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <optional>

#include "frame/Clock.h"
#include "frame/ExitCodes.h"
#include "frame/FileSizeLimit.h"
#include "frame/PathText.h"
#include "frame/PlainWords.h"
#include "frame/UserSettings.h"
#include "frame/Version.h"
#include "spelling/hunspell/HunspellSpeller.h"
#include "start/Program.h"
#include "ui/qt/Platform.h"
#include "ui/qt/QtDesktop.h"

// The program for whoever sits in front of the screen.
namespace lantos {

namespace {

int RunProgram(const std::string& commandLine) {
  SystemClock clock;
  UserSettings settings(UserSettings::PlatformDirectory());
  const std::string computerName = PlatformComputerName();
  ui::QtDesktop desktop;
  desktop.JoinRegistry(computerName);
  return Program(desktop, clock, settings,
                 Invocation{commandLine, computerName, kBusyTimeout, PlatformUserName(), Invocation::Follow::AsSet,
                            [] { return OpenDictionary(kInstalledDictionaries, LanguagesOfUser()); }})
      .Run();
}

constexpr std::string_view kHelp =
    R"(Usage: lantos [options] [/D=DIRECTORY]

The appointment scheduler of a car repair shop.

  /D=DIRECTORY  the directory of the shop's data files. It is kept: later starts need no switch. Blanks in the
                directory need no quotes. Without a switch and with no directory kept the program asks.

  -h, --help    print this and exit
  --version     print the version and exit

Options of the window system, as -platform or -style, come before the switch.

Exit codes: 0 closed in order, 1 the start failed, 2 wrong options, 3 the start was cancelled.
)";

// What is printed instead of starting, which needs no display. Nothing when the program is to start.
std::optional<std::string> AnswerOf(int count, char** arguments) {
  if (count < 2) return std::nullopt;
  const std::string_view first = arguments[1];
  if (first == "--help" || first == "-h") return std::string(kHelp);
  if (first == "--version") return "lantos " + ProgramVersion() + "\n";
  return std::nullopt;
}

// In the bytes that they were given in, since a directory's name may have any.
std::string CommandLineOf(int count, char** arguments) {
  std::string joined;
  for (int i = 1; i < count; ++i) joined += (i == 1 ? "" : " ") + std::string(arguments[i]);
  return TextOfPath(joined);
}

}  // namespace

}  // namespace lantos

int main(int count, char** arguments) {
  lantos::TakeFileSizeLimitAsError();
  if (const auto text = lantos::AnswerOf(count, arguments)) {
    std::fputs(text->c_str(), stdout);
    return lantos::kEndedInOrder;
  }
  lantos::ui::TameWindowSystem("lantos");
  QApplication application(count, arguments);
  lantos::ui::EndWhenAsked();
  QApplication::setApplicationName(QStringLiteral("lantos"));
  QApplication::setApplicationDisplayName(QString());
  // What the window system has taken for itself is no longer among the arguments.
  if (count > 1 && arguments[1][0] == '-') {
    std::fprintf(stderr, "lantos: there is no option %s; lantos --help tells what there is.\n", arguments[1]);
    return lantos::kWrongOptions;
  }
  try {
    return lantos::RunProgram(lantos::CommandLineOf(count, arguments));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "lantos: %s\n", error.what());
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Lantos"), QString::fromUtf8(lantos::WordsFor(error)));
    box.setTextFormat(Qt::PlainText);
    box.exec();
    return lantos::kStartFailed;
  }
}
