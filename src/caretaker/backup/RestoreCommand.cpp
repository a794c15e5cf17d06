#include <fmt/format.h>

#include <memory>

#include "caretaker/Telling.h"
#include "caretaker/backup/Commands.h"
#include "caretaker/backup/Restore.h"
#include "frame/PathText.h"

namespace lantos {

namespace {

struct Arguments {
  std::string archive;
  std::string directory;
  std::vector<std::string> only;
  Telling telling = Telling::Plain;
};

Outcome RunRestore(const Arguments& arguments) {
  SystemClock clock;
  RestoreDone done;
  {
    ProgressBar bar;
    done = Restore(arguments.archive, arguments.directory, arguments.only, clock,
                   [&](const BackupProgress& progress) { bar.Show(progress.step, progress.done, progress.of); });
  }
  if (arguments.telling == Telling::Json) {
    TellJson({{"made", done.manifest.madeAt}, {"restored", done.restored}, {"kept", done.kept.string()}});
    return Outcome::Sound;
  }
  TellLine(fmt::format("Restored {} files of the backup of {}; all checksums are right.", done.restored.size(),
                       done.manifest.madeAt));
  if (!done.kept.empty()) TellLine(fmt::format("What they replaced lies in \"{}\".", TextOfPath(done.kept)));
  return Outcome::Sound;
}

Outcome RunVerify(const Arguments& arguments) {
  SystemClock clock;
  Verified verified;
  {
    ProgressBar bar;
    verified = Verify(arguments.archive, clock,
                      [&](const BackupProgress& progress) { bar.Show(progress.step, progress.done, progress.of); });
  }
  const bool isAlike = verified.differences.empty();
  const bool isNoted = isAlike && NoteVerified(verified.manifest, clock);
  const Outcome outcome = isAlike && verified.faults.empty() ? Outcome::Sound : Outcome::Left;
  if (arguments.telling == Telling::Json) {
    TellJson({{"made", verified.manifest.madeAt},
              {"figures", verified.manifest.figures.size()},
              {"differences", verified.differences},
              {"faults", verified.faults},
              {"noted", isNoted}});
    return outcome;
  }
  for (const std::string& difference : verified.differences) TellLine(difference);
  TellLine(isAlike
               ? fmt::format("The backup of {} was restored and compared: {} files, {} figures, all alike.",
                             verified.manifest.madeAt, verified.manifest.files.size(), verified.manifest.figures.size())
               : fmt::format("The backup of {} isn't what the shop was. Take another one.", verified.manifest.madeAt));
  for (const std::string& fault : verified.faults) TellLine(fault);
  if (!verified.faults.empty()) {
    TellLine(fmt::format("{} of the shop itself, which the backup has as they were: lantos-shop check tells of them.",
                         verified.faults.size() == 1 ? "That is a fault" : "Those are faults"));
  }
  if (isNoted) {
    TellLine(fmt::format("Noted in \"{}\".", TextOfPath(std::filesystem::path(verified.manifest.directory))));
  }
  return outcome;
}

}  // namespace

void AddRestore(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand("restore", "Put the files of the backup FILE in the place of those in DIR");
  command->add_option("FILE", arguments->archive, "The backup")->required();
  command->add_option("DIR", arguments->directory, "The data directory; made when it isn't there")->required();
  command->add_option("--only", arguments->only, "These files alone");
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return RunRestore(*arguments); }; });
}

void AddVerify(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand(
      "verify", "Restore the backup FILE into a folder beside it, and compare it with the shop it was");
  command->add_option("FILE", arguments->archive, "The backup")->required();
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return RunVerify(*arguments); }; });
}

}  // namespace lantos
