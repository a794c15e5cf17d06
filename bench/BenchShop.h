#pragma once

#include <filesystem>
#include <string>

#include "bench/QuietDesktop.h"
#include "shop/Shop.h"
#include "shopmaker/SampleShop.h"
#include "ui/GlobalKeys.h"

namespace lantos::bench {

inline constexpr DaySerial kBenchDay = 37894;  // Tuesday, 30 September 2003

// The shops that are measured on, each made when it is first asked for.
const std::filesystem::path& LargestShop();   // 32,767 customers and 50,000 vehicles
const std::filesystem::path& BusyWeekShop();  // 40 estimates of 5 labor lines on each day of the week
const std::filesystem::path& StartShop();     // 5,000 customers, and parts in the proportion of the sample shop
const std::filesystem::path& PartsShop();     // 100,000 parts
const std::filesystem::path& CheckedShop();   // 32,767 customers, 50,000 vehicles, 100,000 parts and 120 estimates
const std::filesystem::path& FullDayShop();   // 60 estimates of 5 labor lines on one day

// What a screen is handed, on one of the shops.
struct World {
  explicit World(const std::filesystem::path& shopDirectory);

  StandingClock clock{LocalTime{kBenchDay, 8 * 3600 * 1000}};
  UserSettings settings;
  Environment environment{clock, settings};
  QuietDesktop desktop;
  Records records{environment, desktop};
  ui::GlobalKeys keys{desktop};
  Shop shop{desktop, environment, records, keys};
};

}  // namespace lantos::bench
