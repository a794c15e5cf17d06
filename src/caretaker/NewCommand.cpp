#include <fmt/format.h>

#include <memory>

#include "caretaker/Command.h"
#include "caretaker/Telling.h"
#include "frame/Text.h"
#include "shopmaker/EmptyShop.h"

namespace lantos {

namespace {

struct Arguments {
  std::string directory;
  ShopIdentity identity;
  std::string group;
  Telling telling = Telling::Plain;
};

// The arguments come in the terminal's page; records are kept in the program's.
ShopIdentity InThePage(ShopIdentity identity) {
  for (std::string* text :
       {&identity.name, &identity.address, &identity.city, &identity.state, &identity.zip, &identity.phone}) {
    *text = FromUtf8(*text);
  }
  return identity;
}

Outcome MakeNew(const Arguments& arguments) {
  SystemClock clock;
  {
    ProgressBar bar;
    MakeEmptyShop(arguments.directory, InThePage(arguments.identity), clock, arguments.group,
                  [&bar](std::string_view what, std::uint64_t done, std::uint64_t of) { bar.Show(what, done, of); });
  }
  if (arguments.telling == Telling::Json) {
    TellJson({{"directory", arguments.directory}});
  } else {
    fmt::print("Made an empty shop in {}.\n", arguments.directory);
  }
  return Outcome::Sound;
}

}  // namespace

void AddNew(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand("new", "Make an empty shop in DIR");
  command->add_option("DIR", arguments->directory, "The data directory; made when it isn't there")->required();
  command->add_option("--name", arguments->identity.name, "Company name");
  command->add_option("--address", arguments->identity.address, "Street address");
  command->add_option("--city", arguments->identity.city, "City, also of new customers");
  command->add_option("--state", arguments->identity.state, "State, also of new customers and vehicles");
  command->add_option("--zip", arguments->identity.zip, "Zip code");
  command->add_option("--phone", arguments->identity.phone, "Telephone number");
  command->add_option("--group", arguments->group,
                      "Share the directory with this group: what is made in it is the group's");
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return MakeNew(*arguments); }; });
}

}  // namespace lantos
