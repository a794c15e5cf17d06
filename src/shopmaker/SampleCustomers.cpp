#include <fmt/format.h>

#include "frame/Dates.h"
#include "records/Customers.h"
#include "records/modSystem.h"
#include "shopmaker/Random.h"
#include "shopmaker/SampleSteps.h"
#include "shopmaker/SampleWords.h"

namespace lantos::sample {

namespace {

constexpr int kFleetPercent = 4;
constexpr std::int16_t kWholesale = 1, kResale = 2, kRetailLevel = 3;
constexpr DaySerial kOldestCustomer = 12 * 365;  // days before the sample's day

std::string Phone(Random& random, const Town& town) {
  return fmt::format("{}-555-{:04}", town.areaCode, random.Below(10000));
}

void NameFleet(Random& random, CustomerRecord& record) {
  const std::string_view name = random.Pick(kBusinessNames);
  const std::string_view prefix = random.Pick(kTaxIdPrefixes);
  record.Put(customer::Lastname, fmt::format("{} {}", name, random.Pick(kBusinessKinds)));
  record.Put(customer::tax_id_number, fmt::format("{}-{:06}", prefix, random.Below(1000000)));
  record.Put(customer::pricing_level, random.Chance(60) ? kWholesale : kResale);
}

void NamePerson(Random& random, CustomerRecord& record) {
  record.Put(customer::Lastname, random.Pick(kLastnames));
  record.Put(customer::Firstname, random.Pick(kFirstnames));
  record.Put(customer::pricing_level, random.Chance(92) ? kRetailLevel : kResale);
  if (!random.Chance(45)) return;
  record.Put(customer::Spouse, random.Pick(kFirstnames));
  if (random.Chance(15)) record.Put(customer::SpouseLast, random.Pick(kLastnames));
}

void GiveAddress(Random& random, CustomerRecord& record) {
  const Town& town = random.Pick(kTowns);
  const std::int32_t house = random.Between(10, 9899);
  record.Put(customer::Address, fmt::format("{} {}", house, random.Pick(kStreets)));
  record.Put(customer::City, town.city);
  record.Put(customer::State, town.state);
  record.Put(customer::Zip, town.zip);
  if (random.Chance(93)) record.Put(customer::HomePhone, Phone(random, town));
  if (random.Chance(55)) {
    record.Put(customer::WorkPhone, Phone(random, town));
    if (random.Chance(30)) record.Put(customer::WorkExt, fmt::format("{}", random.Between(10, 499)));
  }
  if (random.Chance(25)) record.Put(customer::OtherPhone, Phone(random, town));
}

CustomerTag TagOf(const CustomerRecord& record, FileLink offset) {
  CustomerTag tag;
  tag.Put(customertag::Number, record.Get(customer::Number));
  tag.Put(customertag::NameKey,
          fmt::format("{},{}", record.View(customer::Lastname), record.View(customer::Firstname)));
  tag.Put(customertag::SpouseKey,
          fmt::format("{},{}", record.View(customer::SpouseLast), record.View(customer::Spouse)));
  tag.Put(customertag::Offset, offset);
  tag.Put(customertag::Phone, record.Get(customer::HomePhone));
  return tag;
}

}  // namespace

void ImagineCustomers(SampleShop& shop, const SampleOptions& options) {
  Random random(options.seed, kCustomerStream);
  shop.customers.resize(static_cast<std::size_t>(options.customers));
  for (std::int32_t index = 0; index < options.customers; ++index) {
    CustomerRecord& record = shop.customers[static_cast<std::size_t>(index)];
    record.Put(customer::Number, index + 1);
    if (random.Chance(kFleetPercent)) {
      NameFleet(random, record);
    } else {
      NamePerson(random, record);
    }
    GiveAddress(random, record);
    if (random.Chance(12)) record.Put(customer::Comment, random.Pick(kCustomerComments));
    const DaySerial age = static_cast<DaySerial>(static_cast<std::int64_t>(kOldestCustomer) *
                                                 (options.customers - index) / (options.customers + 1));
    record.Put(customer::Date, ToFileDate(options.date - age));
    record.Put(customer::VLink, kNoLink);
    const FileLink offset = index * static_cast<FileLink>(CustomerRecord::kLength);
    shop.customerTags.push_back(TagOf(record, offset));
  }
  shop.system.Put(sysrec::last_customer_number, options.customers + 1);
}

}  // namespace lantos::sample
