#include <CLI/CLI.hpp>

#include "Checks.h"
#include "Processes.h"

int main(int argc, char** argv) {
  using namespace lantos::sharing;
  double seconds = 20;
  int processes = 8;
  int numbersEach = 5000;
  int kills = 1000;
  std::string parent = std::filesystem::temp_directory_path().string();
  CLI::App app("Shows that the sharing modes hold between processes");
  app.add_option("--seconds", seconds, "how long the processes race")->check(CLI::PositiveNumber);
  app.add_option("--processes", processes, "how many race and count")->check(CLI::Range(2, 64));
  app.add_option("--numbers", numbersEach, "taken from the counter by each")->check(CLI::Range(1, 10'000));
  app.add_option("--kills", kills, "how many holders are killed")->check(CLI::Range(1, 1'000'000));
  app.add_option("--directory", parent, "the file system that it is tried on")->check(CLI::ExistingDirectory);
  CLI11_PARSE(app, argc, argv);

  const WorkingDirectory directory(parent);
  bool good = CheckMatrix(directory.Path());
  good = CheckRace(directory.Path(), processes, seconds) && good;
  good = CheckCounter(directory.Path(), processes, numbersEach) && good;
  good = CheckKills(directory.Path(), kills) && good;
  PrintCost(directory.Path());
  std::cout << (good ? "sharing: all as it must be\n" : "sharing: FAILED\n");
  return good ? 0 : 1;
}
