#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "caretaker/Telling.h"
#include "caretaker/check/Commands.h"
#include "caretaker/check/FindingTelling.h"
#include "caretaker/check/RepairShop.h"
#include "caretaker/check/ShopArgument.h"

namespace lantos {

namespace {

struct Arguments {
  std::string directory;
  std::vector<std::string> kinds;
  Deed deed = Deed::Mend;
  Telling telling = Telling::Plain;
};

// In their own order, whatever the command line's; without any, all that can be mended.
std::vector<Kind> KindsOf(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    const Kind* kind = KindNamed(name);
    if (kind == nullptr) throw WrongUse(fmt::format("There is no kind \"{}\".", name));
    if (kind->answer == Answer::None) {
      throw WrongUse(
          fmt::format("Nothing of the kind \"{}\" can be mended: check tells what to look at by hand.", name));
    }
  }
  std::vector<Kind> kinds;
  for (const Kind& kind : Kinds()) {
    const bool isMeant = names.empty() || std::find(names.begin(), names.end(), kind.name) != names.end();
    if (isMeant && kind.answer == Answer::One) kinds.push_back(kind);
  }
  return kinds;
}

void TellPlain(const Repaired& repaired, Deed deed) {
  for (const std::string& copy : repaired.copies) TellLine(fmt::format("Kept as it was: {}", copy));
  for (const Finding& finding : repaired.mended) TellLine(LineOf(finding) + " Mended: " + finding.mending.words + ".");
  for (const Finding& finding : repaired.left) TellLine(LineOf(finding) + " Left: it has no one right answer.");
  if (repaired.mended.empty() && repaired.left.empty()) return TellLine("Nothing is wrong.");
  TellLine(fmt::format("{} {}, left {}.", deed == Deed::Mend ? "Mended" : "Would mend", CountOf(repaired.mended),
                       CountOf(repaired.left)));
}

void TellAsJson(const Arguments& arguments, const Repaired& repaired) {
  TellJson({{"directory", arguments.directory},
            {"dry_run", arguments.deed == Deed::TellOnly},
            {"copies", repaired.copies},
            {"mended", JsonOf(repaired.mended)},
            {"left", JsonOf(repaired.left)}});
}

Repaired Repair(ShopView& shop, std::span<const Kind> kinds, Deed deed) {
  ProgressBar bar;
  return RepairShop(shop, kinds, deed, nullptr,
                    [&](const Kind& kind, std::size_t done, std::size_t of) { bar.Show(kind.looksAt, done, of); });
}

Outcome RunRepair(const Arguments& arguments) {
  const std::vector<Kind> kinds = KindsOf(arguments.kinds);
  SystemClock clock;
  FileIO files(clock);
  GoToShop(files, arguments.directory);
  ShopView shop(files);
  const Repaired repaired = Repair(shop, kinds, arguments.deed);
  arguments.telling == Telling::Json ? TellAsJson(arguments, repaired) : TellPlain(repaired, arguments.deed);
  if (!repaired.left.empty()) return Outcome::Left;
  if (repaired.mended.empty()) return Outcome::Sound;
  return arguments.deed == Deed::Mend ? Outcome::Repaired : Outcome::Left;
}

}  // namespace

void AddRepair(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand(
      "repair",
      "Mend what has one right answer in the shop in DIR, which nobody may work in; what is changed is kept as it was");
  command->add_option("DIR", arguments->directory, "The data directory")->required();
  command->add_option("KIND", arguments->kinds,
                      "What to mend: tags, chains, counters, alternates, mailboxes; all of them by default");
  command->add_flag_callback(
      "--dry-run", [arguments] { arguments->deed = Deed::TellOnly; }, "Tell what would be done, and do none of it");
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return RunRepair(*arguments); }; });
}

}  // namespace lantos
