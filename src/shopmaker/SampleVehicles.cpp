#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "frame/Dates.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"
#include "shopmaker/Random.h"
#include "shopmaker/SampleMakes.h"
#include "shopmaker/SampleSteps.h"

namespace lantos::sample {

namespace {

// Letters and figures that a vehicle number may hold, without I, O and Q.
constexpr std::string_view kVinCharacters = "0123456789ABCDEFGHJKLMNPRSTUVWXYZ";
constexpr std::string_view kPlateLetters = "ABCDEFGHJKLMNPRSTUVWXYZ";
constexpr std::string_view kYearCodes = "ABCDEFGHJKLMNPRSTVWXY123456789";  // from 1980 on, and again from 2010 on
constexpr std::string_view kSerialDigits = "0123456789";
constexpr std::size_t kVinLength = 17, kCheckPlace = 8;
constexpr int kOldestYears = 18;

int VinValue(char c) {
  constexpr std::string_view kLetters = "ABCDEFGHJKLMNPRSTUVWXYZ";
  constexpr std::string_view kValues = "12345678123457923456789";
  const std::size_t letter = kLetters.find(c);
  return letter == std::string_view::npos ? c - '0' : kValues[letter] - '0';
}

char CheckDigit(const std::string& vin) {
  constexpr int kWeights[kVinLength] = {8, 7, 6, 5, 4, 3, 2, 10, 0, 9, 8, 7, 6, 5, 4, 3, 2};
  int sum = 0;
  for (std::size_t i = 0; i < kVinLength; ++i) sum += kWeights[i] * VinValue(vin[i]);
  return sum % 11 == 10 ? 'X' : static_cast<char>('0' + sum % 11);
}

std::string_view MakerCodeOf(std::string_view make) {
  const auto* found = std::find_if(std::begin(kMakerCodes), std::end(kMakerCodes),
                                   [&](const auto& entry) { return entry.make == make; });
  return found->code;
}

// The last seven characters number the vehicles, so no two of a shop are alike.
std::string Vin(Random& random, const ModelEntry& model, int year, std::int32_t index) {
  std::string vin(MakerCodeOf(model.make));
  for (int i = 0; i < 5; ++i) vin += random.Pick(kVinCharacters);
  vin += '0';
  vin += kYearCodes[static_cast<std::size_t>(year - 1980) % kYearCodes.size()];
  vin += fmt::format("{:07}", 100000 + index);
  vin[kCheckPlace] = CheckDigit(vin);
  return vin;
}

struct ModelOfYear {
  const ModelEntry* model;
  int year;
};

// A model that was sold in a year the sample's customers may still drive.
ModelOfYear PickModel(Random& random, int thisYear) {
  constexpr int kTries = 200;  // years far outside the table end with any model
  for (int i = 0; i < kTries; ++i) {
    const ModelEntry& model = random.Pick(kModels);
    const int first = std::max(model.firstYear, thisYear - kOldestYears);
    const int last = std::min(model.lastYear, thisYear);
    if (first <= last) return {&model, random.Between(first, last)};
  }
  return {&kModels[0], kModels[0].firstYear};
}

std::string Plate(Random& random) {
  std::string plate;
  for (int i = 0; i < 3; ++i) plate += random.Pick(kPlateLetters);
  plate += '-';
  for (int i = 0; i < 3; ++i) plate += random.Pick(kSerialDigits);
  return plate;
}

void GiveMileage(Random& random, VehicleRecord& record, int year, const SampleOptions& options) {
  if (random.Chance(5)) return;  // never noted
  const int thisYear = FromSerial(options.date).year;
  const int age = std::max(1, thisYear - year);
  const std::int32_t aYear = random.Between(7000, 15500);
  const std::int32_t mileage = std::min(289000, age * aYear + random.Below(4000));
  const DaySerial sold = std::min(ToSerial({year - 1, 9, 1}), options.date - 30);
  const DaySerial seen = std::max(sold + 20, options.date - random.Between(1, 900));
  const DaySerial firstSeen = std::max(sold, seen - random.Below(1500));
  record.Put(vehicle::Mileage, mileage);
  record.Put(vehicle::Date, ToFileDate(seen));
  record.Put(vehicle::FirstMileage, mileage - std::min(mileage / 2, (seen - firstSeen) * 33));
  record.Put(vehicle::FirstDate, ToFileDate(firstSeen));
}

VehicleRecord ImagineVehicle(Random& random, std::int32_t index, const SampleOptions& options) {
  const auto [model, year] = PickModel(random, FromSerial(options.date).year);
  const bool automatic = random.Chance(80);
  VehicleRecord record;
  record.Put(vehicle::Deleted, random.Chance(2) ? kVehicleDeleted : kVehicleLive);
  record.Put(vehicle::Make, model->make);
  record.Put(vehicle::Model, model->model);
  record.Put(vehicle::Year, fmt::format("{}", year));
  record.Put(vehicle::EngineSize, random.Pick(model->engines));
  record.Put(vehicle::Transmission, automatic ? random.Pick(kAutomatics) : random.Pick(kManuals));
  record.Put(vehicle::VIN, Vin(random, *model, year, index));
  record.Put(vehicle::LicenseNumber, Plate(random));
  record.Put(vehicle::State, random.Chance(90) ? "OR" : "WA");
  if (random.Chance(70)) record.Put(vehicle::VComment[0], random.Pick(kColors));
  if (random.Chance(10)) record.Put(vehicle::VComment[1], random.Pick(kVehicleComments));
  GiveMileage(random, record, year, options);
  return record;
}

// Nearly every customer has one vehicle; the rest go to the fleets and here and there to a household.
std::size_t PickOwner(Random& random, const SampleShop& shop, const std::vector<std::size_t>& fleets,
                      std::int32_t index, std::int32_t firstRound) {
  const auto count = static_cast<std::int64_t>(shop.customers.size());
  if (index < firstRound) return static_cast<std::size_t>(index * count / firstRound);
  if (!fleets.empty() && random.Chance(30)) return random.Pick(fleets);
  return static_cast<std::size_t>(random.Below(static_cast<std::int32_t>(count)));
}

}  // namespace

void ImagineVehicles(SampleShop& shop, const SampleOptions& options) {
  Random random(options.seed, kVehicleStream);
  std::vector<std::size_t> fleets;
  for (std::size_t i = 0; i < shop.customers.size(); ++i) {
    if (!shop.customers[i].View(customer::tax_id_number).empty()) fleets.push_back(i);
  }
  const std::int32_t firstRound = std::min(options.vehicles, options.customers - options.customers / 32);
  shop.vehicles.reserve(static_cast<std::size_t>(options.vehicles));
  for (std::int32_t index = 0; index < options.vehicles; ++index) {
    CustomerRecord& owner = shop.customers[PickOwner(random, shop, fleets, index, firstRound)];
    VehicleRecord record = ImagineVehicle(random, index, options);
    record.Put(vehicle::Number, owner.Get(customer::Number));
    record.Put(vehicle::VLink, owner.Get(customer::VLink));  // the newest comes first
    owner.Put(customer::VLink, index * static_cast<FileLink>(VehicleRecord::kLength));
    shop.vehicles.push_back(record);
  }
}

// The file grows make by make, and a model is put in ahead of the make's other models.
void ImagineMakes(SampleShop& shop) {
  const auto offsetOf = [](std::size_t index) { return static_cast<FileLink>(index * MakeModelRecord::kLength); };
  std::size_t make = 0;
  for (const ModelEntry& entry : kModels) {
    if (shop.makes.empty() || shop.makes[make].View(makemodel::Name) != entry.make) {
      make = shop.makes.size();
      MakeModelRecord& record = shop.makes.emplace_back();
      record.Put(makemodel::Name, entry.make);
      record.Put(makemodel::Prev, kNoLink);
      record.Put(makemodel::Next, kNoLink);
    }
    MakeModelRecord model;
    model.Put(makemodel::Name, entry.model);
    model.Put(makemodel::Prev, offsetOf(make));
    model.Put(makemodel::Next, shop.makes[make].Get(makemodel::Next));
    shop.makes[make].Put(makemodel::Next, offsetOf(shop.makes.size()));
    shop.makes.push_back(model);
  }
}

}  // namespace lantos::sample
