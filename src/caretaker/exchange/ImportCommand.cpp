#include <fmt/format.h>

#include <memory>
#include <optional>

#include "caretaker/Telling.h"
#include "caretaker/check/ShopArgument.h"
#include "caretaker/exchange/Commands.h"
#include "caretaker/exchange/MdbTools.h"
#include "caretaker/exchange/NobodyAsked.h"
#include "estimatedb/EstimateDatabase.h"
#include "estimatedb/JetImport.h"
#include "frame/Text.h"

namespace lantos {

namespace {

struct Arguments {
  std::string directory;
  std::vector<std::string> leave;
  Telling telling = Telling::Plain;
};

void ShowProgress(ProgressBar& bar, const MoveProgress& progress) {
  if (progress.step == MoveStep::Placing) return;
  const std::string_view deed = progress.step == MoveStep::Copying ? "read" : "compared";
  bar.Show(fmt::format("{}: rows {}", progress.table, deed), static_cast<std::uint64_t>(progress.done),
           static_cast<std::uint64_t>(progress.of));
}

std::int64_t RowsOf(const JetImport& done) {
  std::int64_t rows = 0;
  for (const MovedTable& table : done.tables) rows += table.rows;
  return rows;
}

void TellPlain(const JetImport& done, const std::vector<std::string>& complaints) {
  for (const MovedTable& table : done.tables) TellLine(fmt::format("{}: {} rows", table.name, table.rows));
  TellLine(
      fmt::format("Took over {} rows of {} tables; all were counted and compared.", RowsOf(done), done.tables.size()));
  if (done.wasUpgraded) TellLine("An older program made the database; it was brought to the current shape.");
  for (const std::string& name : done.leftBehind) {
    TellLine(fmt::format("\"{}\" isn't the program's; it stays in the old database.", name));
  }
  for (const LongTexts& texts : done.longTexts) {
    TellLine(fmt::format("{}: {} longer than the program's own texts, kept whole.", texts.column,
                         texts.count == 1 ? "1 text is" : fmt::format("{} texts are", texts.count)));
  }
  for (const std::string& complaint : complaints) TellLine(FromUtf8(complaint));
  TellLine(fmt::format("The old database is \"{}\" from here on.", done.kept));
}

void TellAsJson(const Arguments& arguments, const JetImport& done, const std::vector<std::string>& complaints) {
  nlohmann::ordered_json tables = nlohmann::ordered_json::object();
  for (const MovedTable& table : done.tables) tables[table.name] = table.rows;
  nlohmann::ordered_json longTexts = nlohmann::ordered_json::object();
  for (const LongTexts& texts : done.longTexts) longTexts[texts.column] = texts.count;
  nlohmann::ordered_json leftBehind = nlohmann::ordered_json::array();
  for (const std::string& name : done.leftBehind) leftBehind.push_back(ToUtf8(name));
  TellJson({{"directory", arguments.directory},
            {"rows", tables},
            {"upgraded", done.wasUpgraded},
            {"left_behind", leftBehind},
            {"long_texts", longTexts},
            {"complaints", complaints},
            {"kept", ToUtf8(done.kept)}});
}

// What the tools complained of may be missing in a row that was counted all the same.
Outcome RunImport(const Arguments& arguments) {
  SystemClock clock;
  UserSettings settings(UserSettings::PlatformDirectory());
  Environment environment(clock, settings);
  GoToShop(environment.files, arguments.directory);
  NobodyAsked nobody;
  Records records(environment, nobody);
  std::optional<ProgressBar> bar(std::in_place);
  MdbTools tools(environment.files.PathOf(kLantosDatabase), [&bar] { bar->Look(); });
  const JetImport done = ImportJet(environment, records, tools, arguments.leave,
                                   [&](const MoveProgress& progress) { ShowProgress(*bar, progress); });
  bar.reset();
  arguments.telling == Telling::Json ? TellAsJson(arguments, done, tools.Complaints())
                                     : TellPlain(done, tools.Complaints());
  return tools.Complaints().empty() ? Outcome::Sound : Outcome::Left;
}

}  // namespace

void AddImport(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand(
      "import", "Take the estimates over from the earlier program's Jet database in DIR, which nobody may work in");
  command->add_option("DIR", arguments->directory, "The data directory with the old Lantos.mdb, which is kept")
      ->required();
  command->add_option("--leave", arguments->leave,
                      "A column that isn't the program's and that nobody needs, as Estimates.Extra");
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return RunImport(*arguments); }; });
}

}  // namespace lantos
