#include "Target.h"
#include "start/DataDirectory.h"

namespace lantos::fuzz {

// The program's own command line, and what the next start makes of the directory that was stored.
void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put("Korvel.conf", "");
  const std::string line(bytes);
  ProcessCommandLine(shop.environment, shop.desktop, line);
  const std::string stored = shop.settings.Get(kMainApplication, kSettingsSection, "DataDir");
  const bool oneLine = line.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos;
  if (oneLine && TrimView(line).starts_with("/D=")) Require(stored.ends_with('\\'));
  Refusable([&] { ResolveDataDir(shop.environment, shop.desktop); });
  Require(stored.empty() || shop.settings.Get(kMainApplication, kSettingsSection, "DataDir") == stored);
}

}  // namespace lantos::fuzz
