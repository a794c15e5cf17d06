#include <fmt/format.h>

#include <memory>

#include "caretaker/Telling.h"
#include "caretaker/check/CheckShop.h"
#include "caretaker/check/Commands.h"
#include "caretaker/check/FindingTelling.h"
#include "caretaker/check/ShopArgument.h"

namespace lantos {

namespace {

struct Arguments {
  std::string directory;
  Telling telling = Telling::Plain;
};

std::vector<Finding> Look(ShopView& shop) {
  ProgressBar bar;
  return CheckShop(shop, Kinds(),
                   [&](const Kind& kind, std::size_t done, std::size_t of) { bar.Show(kind.looksAt, done, of); });
}

Outcome Check(const Arguments& arguments) {
  SystemClock clock;
  FileIO files(clock);
  GoToShop(files, arguments.directory);
  ShopView shop(files);
  const std::vector<Finding> findings = Look(shop);
  if (arguments.telling == Telling::Json) {
    TellJson({{"directory", arguments.directory}, {"findings", JsonOf(findings)}});
  } else {
    for (const Finding& finding : findings) TellLine(LineOf(finding));
    fmt::print("{}\n", findings.empty() ? "Nothing is wrong."
                                        : fmt::format("Found {}; nothing was changed.", CountOf(findings)));
  }
  return findings.empty() ? Outcome::Sound : Outcome::Left;
}

}  // namespace

void AddCheck(CLI::App& app, Asked& asked) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      app.add_subcommand("check", "Look for what is wrong in the shop in DIR, while it works too; nothing is changed");
  command->add_option("DIR", arguments->directory, "The data directory")->required();
  AddJsonSwitch(*command, arguments->telling);
  command->callback([arguments, &asked] { asked.run = [arguments] { return Check(*arguments); }; });
}

}  // namespace lantos
