#include "ui/qt/Platform.h"

#include <fcntl.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace lantos::ui {

namespace {

constexpr char kPlatformVariable[] = "QT_QPA_PLATFORM";
constexpr int kNoWindows = 1;

std::string programName;
QtMessageHandler previousHandler = nullptr;

bool IsIdleTalk(const QString& text) {
  // Of windows that no screen shows, and of a folder that this program doesn't use.
  return text.startsWith(QLatin1String("This plugin does not support ")) ||
         text.startsWith(QLatin1String("QStandardPaths: "));
}

bool HasDisplay() { return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"); }

[[noreturn]] void EndWithoutWindows() {
  const std::string platform = qEnvironmentVariable(kPlatformVariable).toStdString();
  std::string reason = "there is no display (DISPLAY is not set)";
  if (HasDisplay()) reason = "the display " + qEnvironmentVariable("DISPLAY").toStdString() + " can't be opened";
  if (!platform.empty()) reason = "the window system \"" + platform + "\" (QT_QPA_PLATFORM) can't be used";
  std::fprintf(stderr, "%s: no windows can be shown: %s.\n", programName.c_str(), reason.c_str());
  std::_Exit(kNoWindows);
}

std::array<int, 2> asked{-1, -1};  // a pipe: little else may be done where a signal comes in

void NoteAsked(int /*signal*/) {
  const char byte = 0;
  if (write(asked[1], &byte, 1) != 1) return;  // it is full: asked often enough
}

void Hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  const bool starting = QCoreApplication::instance() == nullptr || QGuiApplication::platformName().isEmpty();
  if (starting && type == QtFatalMsg) EndWithoutWindows();
  // Why it can't be started is told in one sentence.
  if (IsIdleTalk(text) || (starting && qstrncmp(context.category, "qt.qpa.", 7) == 0)) return;
  previousHandler(type, context, text);
}

}  // namespace

void TameWindowSystem(const std::string& program) {
  if (previousHandler != nullptr) return;
  programName = program;
  previousHandler = qInstallMessageHandler(Hear);
}

void EndWhenAsked() {
  if (pipe2(asked.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* notifier = new QSocketNotifier(asked[0], QSocketNotifier::Read, QCoreApplication::instance());
  QObject::connect(notifier, &QSocketNotifier::activated, notifier, [] { QCoreApplication::exit(0); });
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) std::signal(signal, NoteAsked);
}

void DoWithoutDisplay() {
  if (!HasDisplay() && !qEnvironmentVariableIsSet(kPlatformVariable)) qputenv(kPlatformVariable, "offscreen");
}

}  // namespace lantos::ui
