#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "caretaker/Command.h"
#include "caretaker/Telling.h"
#include "estimatedb/EstimateMove.h"
#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos {

namespace {

struct Arguments {
  std::string directory;
  std::string server;
  std::string schema = "lantos";
  bool toFile = false;
  Telling telling = Telling::Plain;
};

// One line for each table; where somebody looks on, it counts as it goes.
void TellTable(const MoveProgress& progress) {
  const bool isDone = progress.step == MoveStep::Comparing && progress.done == progress.of;
  const bool isWatched = ::isatty(STDOUT_FILENO) == 1;
  if (!isWatched && !isDone) return;
  const char* const what = progress.step == MoveStep::Copying ? "copied" : "compared";
  fmt::print("{}{}: {} of {} rows {}{}", isWatched ? "\r\033[K" : "", progress.table, progress.done, progress.of, what,
             isDone ? "\n" : "");
  std::fflush(stdout);
}

nlohmann::ordered_json AsJson(const EstimateMove& move) {
  nlohmann::ordered_json tables = nlohmann::ordered_json::array();
  for (const MovedTable& table : move.moved.tables) tables.push_back({{"table", table.name}, {"rows", table.rows}});
  nlohmann::ordered_json leftBehind = nlohmann::ordered_json::array();
  for (const std::string& table : move.moved.leftBehind) leftBehind.push_back(ToUtf8(table));
  return {{"tables", tables},
          {"datesDropped", move.moved.datesDropped},
          {"leftBehind", leftBehind},
          {"kept", move.kept.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(ToUtf8(move.kept))}};
}

void TellResult(const EstimateMove& move, bool toFile) {
  std::int64_t rows = 0;
  for (const MovedTable& table : move.moved.tables) rows += table.rows;
  fmt::print("Moved {} rows of {} tables; all were counted and compared.\n", rows, move.moved.tables.size());
  if (move.moved.datesDropped != 0) {
    fmt::print("{} texts in the place of a date were none, and are empty now.\n", move.moved.datesDropped);
  }
  for (const std::string& table : move.moved.leftBehind) {
    fmt::print("The table \"{}\" isn't the program's; it stays in the old database.\n", ToUtf8(table));
  }
  if (move.kept.empty()) {
    fmt::print("The old database is still there under its name: the server didn't let it be changed.\n");
  } else {
    fmt::print("The old {} is \"{}\" from here on.\n", toFile ? "schema" : "database", ToUtf8(move.kept));
  }
}

std::uint64_t Whole(std::int64_t count) { return static_cast<std::uint64_t>(count); }

Outcome Move(const Arguments& arguments) {
  SystemClock clock;
  FileIO files(clock);
  files.SetDataDir(TextOfPath(std::filesystem::absolute(arguments.directory)) + "/");
  const bool isPlain = arguments.telling == Telling::Plain;
  const auto move = [&] {
    ProgressBar bar;
    const auto tell = [&](const MoveProgress& progress) {
      if (progress.step == MoveStep::Placing) return;  // up to here it can be stopped
      isPlain ? bar.Look() : bar.Show(progress.table, Whole(progress.done), Whole(progress.of));
      if (isPlain) TellTable(progress);
    };
    return arguments.toFile ? MoveToFile(files, tell) : MoveToServer(files, arguments.server, arguments.schema, tell);
  }();
  isPlain ? TellResult(move, arguments.toFile) : TellJson(AsJson(move));
  return Outcome::Sound;
}

}  // namespace

void AddMove(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand(
      "move", "Move the estimates of the shop in DIR to a PostgreSQL server, or back with --to-file");
  command->add_option("DIR", arguments->directory, "The data directory")->required();
  CLI::Option* server = command->add_option("SERVER", arguments->server,
                                            "postgresql://host:port/database; a password stands in libpq's own places");
  CLI::Option* schema =
      command->add_option("--schema", arguments->schema, "The shop's own schema there; made when it isn't there")
          ->capture_default_str();
  command->add_flag("--to-file", arguments->toFile, "Back into a file")->excludes(server)->excludes(schema);
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] {
    const bool isToServer = !arguments->server.empty();
    if (isToServer == arguments->toFile) throw CLI::RequiredError("One of SERVER and --to-file");
    asked.run = [arguments] { return Move(*arguments); };
  });
}

}  // namespace lantos
