#include <fmt/format.h>

#include <memory>

#include "caretaker/Command.h"
#include "caretaker/DateArgument.h"
#include "caretaker/Telling.h"
#include "frame/Dates.h"
#include "shopmaker/ShopTrail.h"

namespace lantos {

namespace {

struct Arguments {
  std::string directory;
  std::string date;
  Telling telling = Telling::Plain;
};

Outcome PruneTrail(const Arguments& arguments) {
  SystemClock clock;
  const DaySerial date = DateArgument(arguments.date);
  const ProgressBar bar;
  const std::int64_t count = PruneShopTrail(arguments.directory, date, clock, [&bar] { bar.Look(); });
  if (arguments.telling == Telling::Json) {
    TellJson({{"taken", count}, {"before", FormatIsoDate(date)}});
    return Outcome::Sound;
  }
  fmt::print("Took {} off the trail that {} before {}.\n", count == 1 ? "1 change" : fmt::format("{} changes", count),
             count == 1 ? "was made" : "were made", FormatIsoDate(date));
  return Outcome::Sound;
}

}  // namespace

void AddPruneTrail(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand("prune-trail", "Take old changes off the trail of the shop in DIR");
  command->add_option("DIR", arguments->directory, "The data directory")->required();
  command->add_option("DATE", arguments->date, "The first day whose changes stay, as 2003-09-30")->required();
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return PruneTrail(*arguments); }; });
}

}  // namespace lantos
