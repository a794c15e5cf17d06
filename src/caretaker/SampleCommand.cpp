#include <fmt/format.h>

#include <memory>

#include "caretaker/Command.h"
#include "caretaker/DateArgument.h"
#include "caretaker/Telling.h"
#include "frame/Dates.h"
#include "shopmaker/SampleShop.h"

namespace lantos {

namespace {

struct Arguments {
  std::string directory;
  SampleOptions sample;
  std::string date;
  Telling telling = Telling::Plain;
};

Outcome MakeSample(Arguments& arguments) {
  SystemClock clock;
  SampleOptions& sample = arguments.sample;
  sample.date = arguments.date.empty() ? clock.Today() : DateArgument(arguments.date);
  {
    ProgressBar bar;
    MakeSampleShop(arguments.directory, sample, clock,
                   [&bar](std::string_view what, std::uint64_t done, std::uint64_t of) { bar.Show(what, done, of); });
  }
  if (arguments.telling == Telling::Json) {
    TellJson({{"directory", arguments.directory},
              {"customers", sample.customers},
              {"vehicles", sample.vehicles},
              {"parts", sample.parts},
              {"estimates", sample.estimates},
              {"date", FormatIsoDate(sample.date)},
              {"seed", sample.seed}});
    return Outcome::Sound;
  }
  fmt::print("Made a shop of {} customers, {} vehicles, {} parts and {} estimates around {} in {}.\n", sample.customers,
             sample.vehicles, sample.parts, sample.estimates, FormatIsoDate(sample.date), arguments.directory);
  return Outcome::Sound;
}

}  // namespace

void AddSample(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  SampleOptions& sample = arguments->sample;
  CLI::App* command = app.add_subcommand("sample", "Make a shop full of work in DIR, always the same for one seed");
  command->add_option("DIR", arguments->directory, "The data directory; made when it isn't there")->required();
  command->add_option("--customers", sample.customers, "Number of customers")->capture_default_str();
  command->add_option("--vehicles", sample.vehicles, "Number of vehicles")->capture_default_str();
  command->add_option("--parts", sample.parts, "Number of parts")->capture_default_str();
  command->add_option("--estimates", sample.estimates, "Number of estimates")->capture_default_str();
  command->add_option("--date", arguments->date, "The day the work lies around, as 2003-09-30; today by default");
  command->add_option("--seed", sample.seed, "Another seed, another shop")->capture_default_str();
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return MakeSample(*arguments); }; });
}

}  // namespace lantos
