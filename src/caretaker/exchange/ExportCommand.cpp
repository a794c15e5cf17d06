#include <fmt/format.h>

#include <map>
#include <memory>
#include <optional>

#include "caretaker/DateArgument.h"
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

// The list goes to the standard output, and to nothing else.
Outcome RunExport(const Arguments& arguments) {
  if (arguments.isCsv == arguments.isCalendar) throw WrongUse("One of --csv and --ics must be given.");
  if (arguments.isCsv && !arguments.list) {
    throw WrongUse("With --csv one of estimates, customers, vehicles, parts and labor must be given.");
  }
  if (arguments.isCalendar && arguments.list)
    throw WrongUse("A calendar is of the estimates; no list is named for it.");
  SystemClock clock;
  FileIO files(clock);
  GoToShop(files, arguments.directory);
  const DaySerial first = arguments.from.empty() ? clock.Today() : DateArgument(arguments.from);
  fmt::print("{}", arguments.isCsv ? ShopAsCsv(files, *arguments.list)
                                   : ShopAsCalendar(files, first, first + arguments.days - 1, arguments.events));
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
  command->add_option("--from", arguments->from, "The calendar's first day, as 2003-09-30; today by default");
  command->add_option("--days", arguments->days, "How many days it has")
      ->check(CLI::Range(1, 3660))
      ->capture_default_str();
  command->add_option("--by", arguments->events, "One event a day, or one an estimate")
      ->transform(CLI::CheckedTransformer(kEvents));
  command->callback([arguments, &asked] { asked.run = [arguments] { return RunExport(*arguments); }; });
}

}  // namespace lantos
