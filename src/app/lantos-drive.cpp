#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

#include "frame/ExitCodes.h"
#include "frame/FileSizeLimit.h"
#include "frame/PathText.h"
#include "frame/Text.h"
#include "frame/Version.h"
#include "spelling/hunspell/HunspellSpeller.h"
#include "start/Program.h"
#include "ui/driver/ControlJson.h"
#include "ui/driver/DriverDesktop.h"
#include "ui/driver/Session.h"
#ifdef LANTOS_WITH_QT
#include <QApplication>

#include "ui/qt/Platform.h"
#include "ui/qt/QtHand.h"
#endif

// The whole program with a person replaced by a pipe.
namespace lantos {

namespace {

constexpr int kBroken = 70;
constexpr std::int64_t kLongestTimeout = 3'600'000;  // an hour

struct DriveOptions {
  std::string desktop = "driver";
  std::string now;
  std::string computer = PlatformComputerName();
  std::string user = ToUtf8(PlatformUserName());
  std::string settings = UserSettings::PlatformDirectory().string();
  std::string printTo;
  std::string dictionaries;
  std::int64_t busyTimeout = kBusyTimeout.count();
  bool keys = false;
  bool live = false;
  std::string programArguments;
};

// What stands behind "--" is the program's own.
std::string JoinedArguments(int first, int count, char** arguments) {
  std::string joined;
  for (int i = first; i < count; ++i) joined += (i == first ? "" : " ") + std::string(arguments[i]);
  return TextOfPath(joined);
}

int OwnArgumentCount(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    if (std::string_view(arguments[i]) == "--") return i;
  }
  return count;
}

std::string CheckDesktop(const std::string& name) {
#ifndef LANTOS_WITH_QT
  if (name == "qt") return "this build has no real windows";
#endif
  return name == "driver" || name == "qt" ? "" : "a desktop is 'driver' or 'qt', not '" + name + "'";
}

std::string CheckTime(const std::string& text) {
  return ParseLocalTime(text) ? "" : "'" + text + "' is no time like 2003-09-30T08:15:00";
}

// The exit code when the process is to end at once, else -1.
int ReadOptions(int count, char** arguments, DriveOptions& options) {
  CLI::App app("Lantos with a person replaced by a pipe: one JSON line a deed, one JSON line an answer.",
               "lantos-drive");
  app.add_option("--desktop", options.desktop, "what stands for the window system: driver or qt")->check(CheckDesktop);
  app.add_option("--now", options.now, "the local time at which the clock stands")->check(CheckTime);
  app.add_option("--computer", options.computer, "the computer's name");
  app.add_option("--user", options.user, "the person's name at the operating system");
  app.add_option("--settings", options.settings, "where the per-user settings store lives");
  app.add_option("--print-to", options.printTo, "where printed jobs land");
  app.add_option("--busy-timeout", options.busyTimeout,
                 "milliseconds for which a lock that another copy holds on the database is waited for")
      ->check(CLI::Range(kLongestTimeout));
  app.add_option("--dictionaries", options.dictionaries,
                 "where the spelling's dictionaries lie; without it there is none");
  app.add_flag("--live", options.live, "what others change is shown by itself, unless the person has set it otherwise");
  app.add_flag("--keys", options.keys, "Print the page of all keys of all screens and exit");
  app.set_version_flag("--version", "lantos-drive " + ProgramVersion(), "Print the version and exit");
  app.footer("What stands behind -- is the program's own command line, as /D=/some/dir.");
  const int own = OwnArgumentCount(count, arguments);
  try {
    app.parse(own, arguments);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);
    std::cerr << "lantos-drive: " << error.what() << "\n"
              << "What is the program's own stands behind --, as in: lantos-drive -- /D=/some/dir\n"
              << "lantos-drive --help tells the options.\n";
    return kWrongOptions;
  }
  options.programArguments = JoinedArguments(own + 1, count, arguments);
  return -1;
}

std::filesystem::path PrintFolder(const std::string& given) {
  if (!given.empty()) {
    std::filesystem::create_directories(given);
    return given;
  }
  std::string made = (std::filesystem::temp_directory_path() / "lantos-print-XXXXXX").string();
  if (mkdtemp(made.data()) == nullptr) throw std::runtime_error("no folder for printed jobs can be made: " + made);
  return made;
}

std::unique_ptr<Clock> MakeClock(const std::string& now) {
  if (now.empty()) return std::make_unique<SystemClock>();
  return std::make_unique<StandingClock>(*ParseLocalTime(now));
}

OpenSpeller SpellerOf(const DriveOptions& options) {
  if (options.dictionaries.empty()) return nullptr;
  return [folder = options.dictionaries] { return OpenDictionary(folder, LanguagesOfUser()); };
}

int RunProgram(ui::Desktop& desktop, ui::Session& session, Clock& clock, const DriveOptions& options) {
  UserSettings settings(options.settings);
  int code = 0;
  {
    Program program(
        desktop, clock, settings,
        Invocation{options.programArguments, FromUtf8(options.computer), std::chrono::milliseconds(options.busyTimeout),
                   FromUtf8(options.user), options.live ? Invocation::Follow::AsSet : Invocation::Follow::WhenAsked,
                   SpellerOf(options)});
    session.logPath = [&program] { return ToUtf8(program.LogPath()); };
    code = program.Run();
    session.logPath = nullptr;
  }
  session.NoteEnd(code);
  return code;
}

int RunOnDriver(ui::Session& session, Clock& clock, const DriveOptions& options) {
  ui::DriverDesktop desktop(session);
  desktop.PrintTo(PrintFolder(options.printTo));
  desktop.JoinRegistry(FromUtf8(options.computer));
  desktop.note = [&session](ui::Json event) { session.Note(std::move(event)); };
  session.Attach(desktop, desktop.GetHand());
  return RunProgram(desktop, session, clock, options);
}

#ifdef LANTOS_WITH_QT
int RunOnWindows(ui::Session& session, Clock& clock, const DriveOptions& options) {
  // Options of the window system come from the environment alone.
  char name[] = "lantos-drive";
  char* arguments[] = {name, nullptr};
  int count = 1;
  ui::TameWindowSystem(name);
  ui::DoWithoutDisplay();
  const QApplication application(count, arguments);
  ui::QtDesktop desktop(&session);
  desktop.PrintTo(PrintFolder(options.printTo));
  desktop.JoinRegistry(FromUtf8(options.computer));
  ui::QtHand hand(desktop);
  desktop.notePrinted = [&](const std::string& form, const std::filesystem::path& pdf) {
    const std::filesystem::path text = std::filesystem::path(pdf).replace_extension(".txt");
    if (ui::Form* printed = desktop.FindForm(form)) std::ofstream(text) << ui::ToJson(*printed, hand).dump(2) << "\n";
    session.Note({{"printed", ToUtf8(form)}, {"text", text.string()}, {"pdf", pdf.string()}});
  };
  desktop.noteRaised = [&session](const std::string& caption) { session.Note({{"raised", ui::JsonText(caption)}}); };
  session.Attach(desktop, hand);
  return RunProgram(desktop, session, clock, options);
}
#endif

int PrintKeys(ui::Session& session, Clock& clock, const DriveOptions& options) {
  ui::DriverDesktop desktop(session);
  UserSettings settings(options.settings);
  std::cout << Program(desktop, clock, settings, Invocation{"", ""}).Keys();
  return std::cout.flush() ? 0 : kBroken;
}

int Drive(const DriveOptions& options) {
  const std::unique_ptr<Clock> clock = MakeClock(options.now);
  ui::Session session(std::cin, std::cout, *clock);
  if (options.keys) return PrintKeys(session, *clock, options);
#ifdef LANTOS_WITH_QT
  if (options.desktop == "qt") return RunOnWindows(session, *clock, options);
#endif
  return RunOnDriver(session, *clock, options);
}

}  // namespace

}  // namespace lantos

int main(int count, char** arguments) {
  lantos::TakeFileSizeLimitAsError();
  std::ios::sync_with_stdio(false);  // so that it can be seen whether a line is there already
  try {
    lantos::DriveOptions options;
    const int code = lantos::ReadOptions(count, arguments, options);
    return code >= 0 ? code : lantos::Drive(options);
  } catch (const std::exception& error) {
    std::cerr << "lantos-drive: " << error.what() << "\n";
    return lantos::kBroken;
  }
}
