#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "caretaker/Command.h"
#include "caretaker/Stopping.h"
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
};

// One line for each table; where somebody looks on, it counts as it goes. Up to the last step it can be stopped.
void TellProgress(const MoveProgress& progress, const Stopping& stopping) {
  if (progress.step == MoveStep::Placing) return;
  stopping.Look();
  const bool isDone = progress.step == MoveStep::Comparing && progress.done == progress.of;
  const bool isWatched = ::isatty(STDOUT_FILENO) == 1;
  if (!isWatched && !isDone) return;
  const char* const what = progress.step == MoveStep::Copying ? "copied" : "compared";
  fmt::print("{}{}: {} of {} rows {}{}", isWatched ? "\r\033[K" : "", progress.table, progress.done, progress.of, what,
             isDone ? "\n" : "");
  std::fflush(stdout);
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

Outcome Move(const Arguments& arguments) {
  SystemClock clock;
  FileIO files(clock);
  files.SetDataDir(TextOfPath(std::filesystem::absolute(arguments.directory)) + "/");
  const Stopping stopping;
  const auto tell = [&stopping](const MoveProgress& progress) { TellProgress(progress, stopping); };
  TellResult(arguments.toFile ? MoveToFile(files, tell) : MoveToServer(files, arguments.server, arguments.schema, tell),
             arguments.toFile);
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
  command->callback([arguments, &asked] {
    const bool isToServer = !arguments->server.empty();
    if (isToServer == arguments->toFile) throw CLI::RequiredError("One of SERVER and --to-file");
    asked.run = [arguments] { return Move(*arguments); };
  });
}

}  // namespace lantos
