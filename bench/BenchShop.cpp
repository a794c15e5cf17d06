#include "bench/BenchShop.h"

#include "frame/Dates.h"
#include "records/Vehicles.h"
#include "support/ScratchDirectory.h"

namespace lantos::bench {

namespace {

constexpr int kEstimatesADay = 40;
constexpr int kEstimatesOnFullDay = 60;
constexpr int kLaborLines = 5;

const std::filesystem::path& Scratch() {
  static const test::ScratchDirectory place;
  return place.Path();
}

std::filesystem::path Make(const char* name, const SampleShop& shop) {
  StandingClock clock({kBenchDay, 0});
  const std::filesystem::path path = Scratch() / name;
  WriteShop(path, shop, clock);
  return path;
}

constexpr std::int32_t kPartsACustomer = 3;  // as the sample shop has them by default

SampleOptions Sizes(std::int32_t customers, std::int32_t vehicles, std::int32_t estimates) {
  SampleOptions options;
  options.parts = customers * kPartsACustomer;
  options.customers = customers;
  options.vehicles = vehicles;
  options.estimates = estimates;
  options.date = kBenchDay;
  return options;
}

SampleEstimate BusyEstimate(const SampleShop& shop, std::int32_t number, DaySerial day) {
  SampleEstimate estimate;
  estimate.number = number;
  const std::size_t index = static_cast<std::size_t>(number * 17) % shop.vehicles.size();
  estimate.vehicle = static_cast<FileLink>(index * VehicleRecord::kLength);
  estimate.customer = static_cast<std::size_t>(shop.vehicles[index].Get(vehicle::Number) - 1);
  estimate.created = day - 3;
  estimate.scheduled = day;
  const std::string brakeJob = "REPLACE FRONT BRAKE PADS\tRESURFACE ROTORS\tROAD TEST\t\t\t\t\t";
  for (int line = 0; line < kLaborLines; ++line) {
    estimate.labors.push_back({shop.technicians.front(), 50 + 10 * line, 8500, brakeJob});
  }
  return estimate;
}

SampleShop BusyWeek() {
  SampleShop shop = ImagineShop(Sizes(5000, 8000, 0));
  const DaySerial sunday = kBenchDay - WeekdayIndex(kBenchDay);
  std::int32_t number = 1001;
  for (DaySerial day = sunday; day < sunday + 7; ++day) {
    for (int i = 0; i < kEstimatesADay; ++i) shop.estimates.push_back(BusyEstimate(shop, number++, day));
  }
  return shop;
}

SampleShop FullDay() {
  SampleShop shop = ImagineShop(Sizes(400, 650, 0));
  for (int i = 0; i < kEstimatesOnFullDay; ++i) shop.estimates.push_back(BusyEstimate(shop, 1001 + i, kBenchDay));
  return shop;
}

SampleShop ManyParts() {
  SampleOptions options = Sizes(10, 10, 0);
  options.parts = 100'000;
  return ImagineShop(options);
}

}  // namespace

const std::filesystem::path& LargestShop() {
  static const std::filesystem::path path = Make("largest", ImagineShop(Sizes(32767, 50000, 0)));
  return path;
}

const std::filesystem::path& BusyWeekShop() {
  static const std::filesystem::path path = Make("week", BusyWeek());
  return path;
}

const std::filesystem::path& StartShop() {
  static const std::filesystem::path path = Make("start", ImagineShop(Sizes(5000, 8000, 120)));
  return path;
}

const std::filesystem::path& PartsShop() {
  static const std::filesystem::path path = Make("parts", ManyParts());
  return path;
}

const std::filesystem::path& CheckedShop() {
  static const std::filesystem::path path = [] {
    SampleOptions options = Sizes(32767, 50000, 120);
    options.parts = 100'000;
    return Make("checked", ImagineShop(options));
  }();
  return path;
}

const std::filesystem::path& FullDayShop() {
  static const std::filesystem::path path = Make("day", FullDay());
  return path;
}

World::World(const std::filesystem::path& shopDirectory) : settings(Scratch() / "settings") {
  environment.files.SetDataDir(shopDirectory.string() + "\\");
}

}  // namespace lantos::bench
