#include <fmt/format.h>

#include <memory>

#include "caretaker/DateArgument.h"
#include "caretaker/Telling.h"
#include "caretaker/check/Commands.h"
#include "caretaker/check/RunLogs.h"
#include "caretaker/check/ShopArgument.h"
#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

struct Arguments {
  std::string directory;
  std::string workstation;
  std::string day;
  Telling telling = Telling::Plain;
};

std::string HeadingOf(const ToldRun& run) {
  const std::string who = run.user.empty() ? "" : fmt::format(" ({})", run.user);
  return fmt::format("{}: {}{}, from {} {}", run.log, run.workstation.empty() ? "a workstation" : run.workstation, who,
                     run.lines.front().at, run.isAtWork ? "on, at work" : "to " + run.lines.back().at);
}

void TellPlain(const std::vector<ToldRun>& runs, DaySerial day) {
  for (const ToldRun& run : runs) {
    TellLine(HeadingOf(run));
    for (const LogLine& line : run.lines) TellLine("  " + line.at + " " + line.text);
  }
  if (runs.empty()) {
    TellLine(fmt::format("There is no such log of {}. A log is kept until the first start of another day.",
                         FormatIsoDate(day)));
  }
}

void TellAsJson(const Arguments& arguments, const std::vector<ToldRun>& runs, DaySerial day) {
  nlohmann::ordered_json told = nlohmann::ordered_json::array();
  for (const ToldRun& run : runs) {
    nlohmann::ordered_json lines = nlohmann::ordered_json::array();
    for (const LogLine& line : run.lines) lines.push_back({{"at", line.at}, {"text", ToUtf8(line.text)}});
    told.push_back({{"log", ToUtf8(run.log)},
                    {"workstation", ToUtf8(run.workstation)},
                    {"user", ToUtf8(run.user)},
                    {"at_work", run.isAtWork},
                    {"lines", lines}});
  }
  TellJson({{"directory", arguments.directory}, {"day", FormatIsoDate(day)}, {"runs", told}});
}

Outcome TellLogs(const Arguments& arguments) {
  SystemClock clock;
  FileIO files(clock);
  const DaySerial day = arguments.day.empty() ? clock.Today() : DateArgument(arguments.day);
  GoToShop(files, arguments.directory);
  std::vector<ToldRun> runs = RunsOf(files, day);
  const std::string workstation = FromUtf8(arguments.workstation);
  if (!workstation.empty()) {
    std::erase_if(runs, [&](const ToldRun& run) { return !EqualsIgnoringCase(run.workstation, workstation); });
  }
  arguments.telling == Telling::Json ? TellAsJson(arguments, runs, day) : TellPlain(runs, day);
  return Outcome::Sound;
}

}  // namespace

void AddLogs(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand(
      "logs", "Print what the copies that ran on DIR on one day have written down, while they run too");
  command->add_option("DIR", arguments->directory, "The data directory")->required();
  command->add_option("--workstation", arguments->workstation, "Of this computer alone");
  command->add_option("--day", arguments->day, "The day, as 2003-09-30; today by default");
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return TellLogs(*arguments); }; });
}

}  // namespace lantos
