// The shop's caretaker: makes its data directory, moves its estimates, and looks after what lies in it. Each command is
// a source of its own in src/caretaker.

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <string>

#include "caretaker/Command.h"
#include "caretaker/backup/Commands.h"
#include "caretaker/check/Commands.h"
#include "caretaker/exchange/Commands.h"
#include "frame/FileSizeLimit.h"
#include "frame/PlainWords.h"
#include "frame/Text.h"
#include "frame/Version.h"

namespace {

constexpr void (*kCommands[])(CLI::App&, lantos::Asked&) = {
    lantos::AddNew,    lantos::AddSample, lantos::AddMove,   lantos::AddPruneTrail,
    lantos::AddCheck,  lantos::AddRepair, lantos::AddBackup, lantos::AddRestore,
    lantos::AddVerify, lantos::AddExport, lantos::AddImport, lantos::AddLogs,
};

int Code(lantos::Outcome outcome) { return static_cast<int>(outcome); }

// The words, and the reason of whoever refused it, without what it was asked.
int TellFailure(const std::exception& error, const lantos::PlainWords& plain) {
  const std::string text = error.what();
  fmt::print(stderr, "lantos-shop: {}\n", lantos::ToUtf8(plain.Words()));
  if (text != plain.Words()) fmt::print(stderr, "({})\n", lantos::ToUtf8(text.substr(0, text.find("\n\n"))));
  return Code(lantos::Outcome::NotRun);
}

int TellFailure(const std::exception& error, lantos::Outcome outcome) {
  fmt::print(stderr, "lantos-shop: {}\n", error.what());
  return Code(outcome);
}

int Run(const lantos::Asked& asked) {
  try {
    const lantos::Outcome outcome = asked.run();
    // What is printed for another program is of use to it whole or not at all.
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return Code(outcome);
    fmt::print(stderr, "lantos-shop: Not all could be printed: the disk is full, or nobody reads it.\n");
    return Code(lantos::Outcome::NotRun);
  } catch (const lantos::WordedError& error) {
    return TellFailure(error, error);
  } catch (const lantos::WrongUse& error) {
    return TellFailure(error, lantos::Outcome::WrongUse);
  } catch (const std::exception& error) {
    return TellFailure(error, lantos::Outcome::NotRun);
  }
}

}  // namespace

int main(int argc, char** argv) {
  lantos::TakeFileSizeLimitAsError();
  CLI::App app("Makes the data directory of a shop, moves its estimates, and looks after what lies in it.",
               "lantos-shop");
  app.set_version_flag("--version", "lantos-shop " + lantos::ProgramVersion(), "Print the version and exit");
  app.require_subcommand(0, 1);  // asked for below, so that a wrong word is named rather than the lack of a right one
  lantos::Asked asked;
  for (const auto add : kCommands) add(app, asked);
  try {
    app.parse(argc, argv);
    if (!asked.run) throw CLI::RequiredError("A command");
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error);  // prints what was asked for, or what is wrong
    return Code(code == 0 ? lantos::Outcome::Sound : lantos::Outcome::WrongUse);
  }
  return Run(asked);
}
