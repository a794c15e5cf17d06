#include "help/AboutText.h"

#include <fmt/format.h>
#include <sys/utsname.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "estimatedb/EngineChoice.h"
#include "frame/LastVerified.h"
#include "frame/PathText.h"
#include "frame/PlainWords.h"
#include "frame/Version.h"
#include "records/TextLines.h"
#include "ui/HelpDesk.h"

namespace lantos {

namespace {

constexpr std::string_view kLicence = "MIT License";
constexpr const char* kSystemFile = "/etc/os-release";
constexpr std::string_view kSystemName = "PRETTY_NAME=";

// All that the program is linked with or loads. hunspell tells no version at run time: it is the one it was built with.
std::string Libraries(ui::Desktop& desktop) {
  const ui::HelpDesk* desk = ui::HelpDeskOf(desktop);
  const std::string windows = desk == nullptr ? std::string() : desk->Library();
  std::string text = windows + (windows.empty() ? "" : ", ");
  for (const std::string& library : LibrariesOfEngines()) text += library + ", ";
  return text + fmt::format("hunspell {}, fmt {}.{}.{}, nlohmann-json {}.{}.{}", LANTOS_HUNSPELL_VERSION,
                            FMT_VERSION / 10000, FMT_VERSION / 100 % 100, FMT_VERSION % 100,
                            NLOHMANN_JSON_VERSION_MAJOR, NLOHMANN_JSON_VERSION_MINOR, NLOHMANN_JSON_VERSION_PATCH);
}

// "Debian GNU/Linux 12 (bookworm), Linux 6.1.0, x86_64"
std::string System() {
  std::string name;
  std::ifstream file(kSystemFile);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kSystemName)) name = line.substr(kSystemName.size());
  }
  std::erase(name, '"');
  utsname kernel{};
  if (uname(&kernel) != 0) return FromUtf8(name);
  return FromUtf8(
      fmt::format("{}{}{} {}, {}", name, name.empty() ? "" : ", ", kernel.sysname, kernel.release, kernel.machine));
}

std::string EngineOf(DataEnvironment& database) {
  try {
    return NameOf(database.Connection());
  } catch (const std::exception& error) {
    return "can't be reached: " + WordsFor(error).substr(0, WordsFor(error).find('\r'));
  }
}

// "2003-09-30T09:00:00" as people write it; whatever isn't one stays as it is.
std::string Readable(std::string time) {
  if (time.size() > 10 && time[10] == 'T') time[10] = ' ';
  return time;
}

// The line has the time of the comparing, a blank, and the time that the backup was taken at.
std::string LastBackup(Environment& environment) {
  constexpr std::string_view kNone = "none is known of; lantos-shop verify restores and compares one";
  try {
    const auto lines = ReadTextLines(environment, kLastVerified, Deny::None);
    if (!lines || lines->empty()) return std::string(kNone);
    const std::string line = Trim(lines->front());
    const std::size_t blank = line.find(' ');
    if (blank == std::string::npos) return std::string(kNone);
    return fmt::format("{}, compared on {}", Readable(line.substr(blank + 1)), Readable(line.substr(0, blank)));
  } catch (const std::exception& error) {
    return fmt::format("{} can't be read", kLastVerified);
  }
}

}  // namespace

std::string AboutText(const Shop& shop, EstimateDatabase& database) {
  Environment& environment = shop.environment;
  const std::string orNone = environment.computerName.empty() ? "without a name" : environment.computerName;
  std::string text;
  const auto line = [&](std::string_view what, const std::string& is) { text += fmt::format("{}: {}\r\n", what, is); };
  line("Program", "Lantos " + ProgramVersion());
  line("Licence", std::string(kLicence));
  line("Libraries", Libraries(shop.desktop));
  line("System", System());
  line("Workstation", orNone);
  line("Data directory", environment.files.DataDir());
  line("Estimates", EngineOf(database.lantosData));
  line("Korvel's tables", EngineOf(database.korvelData));
  line("Run log", TextOfPath(environment.log.Path()));
  line("Last backup that was restored and compared", LastBackup(environment));
  return text;
}

}  // namespace lantos
