#include <fmt/format.h>

#include <memory>

#include "caretaker/Telling.h"
#include "caretaker/backup/Backup.h"
#include "caretaker/backup/Commands.h"
#include "frame/PathText.h"

namespace lantos {

namespace {

struct Arguments {
  std::string directory;
  std::string archive;
  int keep = 0;
  Telling telling = Telling::Plain;
};

void TellPlainly(const BackupDone& done) {
  TellLine(fmt::format("Made \"{}\": {} files of {} bytes, as they were at {}.", TextOfPath(done.archive),
                       done.manifest.files.size(), done.manifest.TotalLength(), done.manifest.madeAt));
  for (const auto& older : done.deleted) TellLine(fmt::format("Deleted the older \"{}\".", TextOfPath(older)));
  for (const auto& each : done.cleared) {
    TellLine(fmt::format("Took \"{}\" away, which a run that was killed had left.", TextOfPath(each)));
  }
  for (const std::string& name : done.leftOut) {
    TellLine(fmt::format("Left out \"{}\": it isn't a file of this directory that a program of the shop can open.",
                         TextOfPath(name)));
  }
}

void TellAsJson(const BackupDone& done) {
  nlohmann::ordered_json deleted = nlohmann::ordered_json::array();
  for (const auto& older : done.deleted) deleted.push_back(older.string());
  nlohmann::ordered_json cleared = nlohmann::ordered_json::array();
  for (const auto& each : done.cleared) cleared.push_back(each.string());
  TellJson({{"file", done.archive.string()},
            {"made", done.manifest.madeAt},
            {"files", done.manifest.files.size()},
            {"bytes", done.manifest.TotalLength()},
            {"deleted", deleted},
            {"cleared", cleared},
            {"left out", done.leftOut}});
}

Outcome RunBackup(const Arguments& arguments) {
  SystemClock clock;
  BackupDone done;
  {
    ProgressBar bar;
    const TellBackup tell = [&](const BackupProgress& progress) {
      bar.Show(progress.step, progress.done, progress.of);
    };
    done = arguments.keep > 0 ? MakeNightlyBackup(arguments.directory, arguments.archive, arguments.keep, clock, tell)
                              : MakeBackup(arguments.directory, arguments.archive, clock, tell);
  }
  arguments.telling == Telling::Json ? TellAsJson(done) : TellPlainly(done);
  return done.leftOut.empty() ? Outcome::Sound : Outcome::Left;
}

}  // namespace

void AddBackup(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand("backup", "Put all files of the shop in DIR into one compressed FILE");
  command->add_option("DIR", arguments->directory, "The data directory; others may go on working in it")->required();
  command->add_option("FILE", arguments->archive, "The backup, as /backup/shop.tar.zst")->required();
  command
      ->add_option("--keep", arguments->keep,
                   "For a job of every night: put the time into the name, and keep as many of them")
      ->check(CLI::PositiveNumber);
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return RunBackup(*arguments); }; });
}

}  // namespace lantos
