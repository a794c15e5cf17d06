#include "Target.h"

namespace lantos::fuzz {

namespace {

template <class Read>
void MayBeNoNumber(Read read) {
  try {
    read();
  } catch (const std::invalid_argument&) {
  }
}

}  // namespace

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put("Lantos.conf", bytes);
  UserSettings& settings = shop.settings;
  See(settings.Get("ShowStatus", "1111111111"));
  MayBeNoNumber([&] { settings.GetNumber("MainLeft", 1000); });
  MayBeNoNumber([&] { settings.GetBoolean("LaborOnDayView", true); });
  settings.Save("MainLeft", "1500");
  Require(settings.GetNumber("MainLeft", 0) == 1500);
}

}  // namespace lantos::fuzz
