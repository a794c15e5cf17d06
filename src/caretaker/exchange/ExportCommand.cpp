#include <fmt/format.h>

#include <map>
#include <memory>
#include <optional>

#include "caretaker/DateArgument.h"
#include "caretaker/Telling.h"
#include "caretaker/check/ShopArgument.h"
#include "caretaker/exchange/Commands.h"
#include "caretaker/exchange/ShopExport.h"

namespace lantos {

namespace {

constexpr int kFourWeeks = 28;

struct Arguments {
  std::string directory;
  std::optional<ExportKind> list;
  bool isCsv = false;
  bool isCalendar = false;
  bool isJson = false;
  std::string from;
  int days = kFourWeeks;
  EventKind events = EventKind::Day;
};

const std::map<std::string, ExportKind> kLists = {{"estimates", ExportKind::Estimates},
                                                  {"customers", ExportKind::Customers},
                                                  {"vehicles", ExportKind::Vehicles},
                                                  {"parts", ExportKind::Parts},
                                                  {"labor", ExportKind::Labor}};
const std::map<std::string, EventKind> kEvents = {{"day", EventKind::Day}, {"estimate", EventKind::Estimate}};

void RefuseWrongUse(const Arguments& arguments) {
  if (arguments.isCsv + arguments.isCalendar + arguments.isJson != 1) {
    throw WrongUse("One of --csv, --ics and --json must be given.");
  }
  if (!arguments.isCalendar && !arguments.list) {
    throw WrongUse(fmt::format("With {} one of estimates, customers, vehicles, parts and labor must be given.",
                               arguments.isCsv ? "--csv" : "--json"));
  }
  if (arguments.isCalendar && arguments.list) {
    throw WrongUse("A calendar is of the estimates; no list is named for it.");
  }
}

// The list goes to the standard output, and to nothing else.
Outcome RunExport(const Arguments& arguments) {
  RefuseWrongUse(arguments);
  SystemClock clock;
  FileIO files(clock);
  GoToShop(files, arguments.directory);
  const DaySerial first = arguments.from.empty() ? clock.Today() : DateArgument(arguments.from);
  // The bar is gone before the list comes.
  const auto made = [](const auto& make) {
    ProgressBar bar;
    return make([&bar](std::uint64_t done, std::uint64_t of) { bar.Show("rows", done, of); });
  };
  const ExportKind list = arguments.list.value_or(ExportKind::Estimates);
  if (arguments.isJson) {
    TellJson(made([&](const TellRows& tell) { return ShopAsJson(files, list, tell); }));
  } else if (arguments.isCsv) {
    fmt::print("{}", made([&](const TellRows& tell) { return ShopAsCsv(files, list, tell); }));
  } else {
    const DaySerial last = first + arguments.days - 1;
    fmt::print("{}",
               made([&](const TellRows& tell) { return ShopAsCalendar(files, first, last, arguments.events, tell); }));
  }
  return Outcome::Sound;
}

}  // namespace

void AddExport(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand("export", "Print a list of the shop in DIR for a spreadsheet or a calendar");
  command->add_option("DIR", arguments->directory, "The data directory")->required();
  command->add_option("LIST", arguments->list, "estimates, customers, vehicles, parts or labor")
      ->transform(CLI::CheckedTransformer(kLists));
  command->add_flag("--csv", arguments->isCsv, "The list as comma-separated values");
  command->add_flag("--ics", arguments->isCalendar, "The appointments as a calendar");
  command->add_flag("--json", arguments->isJson, "The list as JSON, for scripts");
  command->add_option("--from", arguments->from, "The calendar's first day, as 2003-09-30; today by default");
  command->add_option("--days", arguments->days, "How many days it has")
      ->check(CLI::Range(1, 3660))
      ->capture_default_str();
  command->add_option("--by", arguments->events, "One event a day, or one an estimate")
      ->transform(CLI::CheckedTransformer(kEvents));
  command->callback([arguments, &asked] { asked.run = [arguments] { return RunExport(*arguments); }; });
}

}  // namespace lantos
