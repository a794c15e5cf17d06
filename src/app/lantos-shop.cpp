// Makes shops: an empty one for a new installation, or a lively one to look at and to measure with. Moves the estimates
// of one to a database server and back. And looks after what grows in one: the trail of who changed what.

#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "estimatedb/EstimateMove.h"
#include "frame/Dates.h"
#include "frame/ExitCodes.h"
#include "frame/FileSizeLimit.h"
#include "frame/PathText.h"
#include "frame/Text.h"
#include "frame/Version.h"
#include "records/MakesModels.h"
#include "shopmaker/EmptyShop.h"
#include "shopmaker/SampleShop.h"
#include "shopmaker/ShopTrail.h"

namespace {

constexpr int kFailed = 1;  // nothing was made, moved or pruned

struct Arguments {
  std::string directory;
  lantos::ShopIdentity identity;
  lantos::SampleOptions sample;
  std::string date;
  std::string group;
  std::string server;
  std::string schema = "lantos";
  bool toFile = false;
};

void AddNew(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("new", "Make an empty shop in DIR");
  command->add_option("DIR", arguments.directory, "The data directory; made when it isn't there")->required();
  command->add_option("--name", arguments.identity.name, "Company name");
  command->add_option("--address", arguments.identity.address, "Street address");
  command->add_option("--city", arguments.identity.city, "City, also of new customers");
  command->add_option("--state", arguments.identity.state, "State, also of new customers and vehicles");
  command->add_option("--zip", arguments.identity.zip, "Zip code");
  command->add_option("--phone", arguments.identity.phone, "Telephone number");
  command->add_option("--group", arguments.group,
                      "Share the directory with this group: what is made in it is the group's");
}

void AddSample(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("sample", "Make a shop full of work in DIR, always the same for one seed");
  command->add_option("DIR", arguments.directory, "The data directory; made when it isn't there")->required();
  command->add_option("--customers", arguments.sample.customers, "Number of customers")->capture_default_str();
  command->add_option("--vehicles", arguments.sample.vehicles, "Number of vehicles")->capture_default_str();
  command->add_option("--parts", arguments.sample.parts, "Number of parts")->capture_default_str();
  command->add_option("--estimates", arguments.sample.estimates, "Number of estimates")->capture_default_str();
  command->add_option("--date", arguments.date, "The day the work lies around, as 2003-09-30; today by default");
  command->add_option("--seed", arguments.sample.seed, "Another seed, another shop")->capture_default_str();
}

void AddMove(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand(
      "move", "Move the estimates of the shop in DIR to a PostgreSQL server, or back with --to-file");
  command->add_option("DIR", arguments.directory, "The data directory")->required();
  CLI::Option* server = command->add_option("SERVER", arguments.server,
                                            "postgresql://host:port/database; a password stands in libpq's own places");
  CLI::Option* schema =
      command->add_option("--schema", arguments.schema, "The shop's own schema there; made when it isn't there")
          ->capture_default_str();
  command->add_flag("--to-file", arguments.toFile, "Back into a file")->excludes(server)->excludes(schema);
}

void AddPruneTrail(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("prune-trail", "Take old changes off the trail of the shop in DIR");
  command->add_option("DIR", arguments.directory, "The data directory")->required();
  command->add_option("DATE", arguments.date, "The first day whose changes stay, as 2003-09-30")->required();
}

// The arguments come in the terminal's page; records are kept in the program's.
lantos::ShopIdentity InThePage(lantos::ShopIdentity identity) {
  for (std::string* text :
       {&identity.name, &identity.address, &identity.city, &identity.state, &identity.zip, &identity.phone}) {
    *text = lantos::FromUtf8(*text);
  }
  return identity;
}

lantos::DaySerial DateOf(const std::string& text, lantos::Clock& clock) {
  if (text.empty()) return clock.Today();
  const auto date = lantos::ParseIsoDate(text);
  if (!date) throw lantos::ShopError(fmt::format("\"{}\" is no date of the form 2003-09-30.", text));
  return *date;
}

void MakeShop(const CLI::App& app, Arguments& arguments) {
  lantos::SystemClock clock;
  if (app.got_subcommand("new")) {
    lantos::MakeEmptyShop(arguments.directory, InThePage(arguments.identity), clock, arguments.group);
    fmt::print("Made an empty shop in {}.\n", arguments.directory);
    return;
  }
  arguments.sample.date = DateOf(arguments.date, clock);
  lantos::MakeSampleShop(arguments.directory, arguments.sample, clock);
  fmt::print("Made a shop of {} customers, {} vehicles, {} parts and {} estimates around {} in {}.\n",
             arguments.sample.customers, arguments.sample.vehicles, arguments.sample.parts, arguments.sample.estimates,
             lantos::FormatIsoDate(arguments.sample.date), arguments.directory);
}

// One line for each table; where somebody looks on, it counts as it goes.
void TellProgress(const lantos::MoveProgress& progress) {
  using lantos::MoveStep;
  if (progress.step == MoveStep::Placing) return;
  const bool isDone = progress.step == MoveStep::Comparing && progress.done == progress.of;
  const bool isWatched = ::isatty(STDOUT_FILENO) == 1;
  if (!isWatched && !isDone) return;
  const char* const what = progress.step == MoveStep::Copying ? "copied" : "compared";
  fmt::print("{}{}: {} of {} rows {}{}", isWatched ? "\r\033[K" : "", progress.table, progress.done, progress.of, what,
             isDone ? "\n" : "");
  std::fflush(stdout);
}

void TellResult(const lantos::EstimateMove& move, bool toFile) {
  std::int64_t rows = 0;
  for (const lantos::MovedTable& table : move.moved.tables) rows += table.rows;
  fmt::print("Moved {} rows of {} tables; all were counted and compared.\n", rows, move.moved.tables.size());
  if (move.moved.datesDropped != 0) {
    fmt::print("{} texts in the place of a date were none, and are empty now.\n", move.moved.datesDropped);
  }
  for (const std::string& table : move.moved.leftBehind) {
    fmt::print("The table \"{}\" isn't the program's; it stays in the old database.\n", lantos::ToUtf8(table));
  }
  if (move.kept.empty()) {
    fmt::print("The old database is still there under its name: the server didn't let it be changed.\n");
  } else {
    fmt::print("The old {} is \"{}\" from here on.\n", toFile ? "schema" : "database", lantos::ToUtf8(move.kept));
  }
}

void Move(const Arguments& arguments) {
  lantos::SystemClock clock;
  lantos::FileIO files(clock);
  files.SetDataDir(lantos::TextOfPath(std::filesystem::absolute(arguments.directory)) + "/");
  TellResult(arguments.toFile ? lantos::MoveToFile(files, TellProgress)
                              : lantos::MoveToServer(files, arguments.server, arguments.schema, TellProgress),
             arguments.toFile);
}

void PruneTrail(const Arguments& arguments) {
  lantos::SystemClock clock;
  const lantos::DaySerial date = DateOf(arguments.date, clock);
  const std::int64_t count = lantos::PruneShopTrail(arguments.directory, date, clock);
  fmt::print("Took {} off the trail that {} before {}.\n", count == 1 ? "1 change" : fmt::format("{} changes", count),
             count == 1 ? "was made" : "were made", lantos::FormatIsoDate(date));
}

void Run(const CLI::App& app, Arguments& arguments) {
  if (app.got_subcommand("move")) return Move(arguments);
  if (app.got_subcommand("prune-trail")) return PruneTrail(arguments);
  MakeShop(app, arguments);
}

// The words, and the reason of whoever refused it, without what it was asked.
void TellFailure(const lantos::WordedError& error) {
  const std::string text = error.what();
  fmt::print(stderr, "lantos-shop: {}\n", lantos::ToUtf8(error.Words()));
  if (text != error.Words()) fmt::print(stderr, "({})\n", lantos::ToUtf8(text.substr(0, text.find("\n\n"))));
}

}  // namespace

int main(int argc, char** argv) {
  lantos::TakeFileSizeLimitAsError();
  CLI::App app("Makes the data directory of a shop, moves its estimates, and looks after its trail.", "lantos-shop");
  app.set_version_flag("--version", "lantos-shop " + lantos::ProgramVersion(), "Print the version and exit");
  app.require_subcommand(0, 1);  // asked for below, so that a wrong word is named rather than the lack of a right one
  Arguments arguments;
  AddNew(app, arguments);
  AddSample(app, arguments);
  AddMove(app, arguments);
  AddPruneTrail(app, arguments);
  try {
    app.parse(argc, argv);
    if (app.get_subcommands().empty()) throw CLI::RequiredError("One of new, sample, move and prune-trail");
    const bool isToServer = !arguments.server.empty();
    if (app.got_subcommand("move") && isToServer == arguments.toFile)
      throw CLI::RequiredError("One of SERVER and --to-file");
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error);  // prints what was asked for, or what is wrong
    return code == 0 ? lantos::kEndedInOrder : lantos::kWrongOptions;
  }
  try {
    Run(app, arguments);
    return 0;
  } catch (const lantos::WordedError& error) {
    TellFailure(error);
    return kFailed;
  } catch (const std::exception& error) {
    fmt::print(stderr, "lantos-shop: {}\n", error.what());
    return kFailed;
  }
}
