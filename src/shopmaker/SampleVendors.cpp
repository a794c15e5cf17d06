#include <fmt/format.h>

#include <algorithm>

#include "shopmaker/Random.h"
#include "shopmaker/SampleSteps.h"
#include "shopmaker/SampleWords.h"

// Whom the shop buys from: those that its purchase orders and sublets name, and the houses that its parts come from.
namespace lantos::sample {

namespace {

constexpr std::string_view kPartsHouses[] = {
    "Cascade Auto Parts",        "Millbrook Motor Supply", "Tri-County Warehouse",
    "Willamette Tire Wholesale", "Pacific Paint & Body",   "Union Fastener",
};

VendorRecord ImagineVendor(Random& random, std::string_view name) {
  const Town& town = random.Pick(kTowns);
  const std::string_view firstname = random.Pick(kFirstnames);
  const auto phone = [&] { return fmt::format("{}-555-{:04}", town.areaCode, random.Below(10000)); };
  const std::int32_t house = random.Between(10, 9899);
  VendorRecord record;
  record.Put(vendor::VendorName, name);
  record.Put(vendor::Contact, fmt::format("{} {}", firstname, random.Pick(kLastnames)));
  record.Put(vendor::Address, fmt::format("{} {}", house, random.Pick(kStreets)));
  record.Put(vendor::City, town.city);
  record.Put(vendor::State, town.state);
  record.Put(vendor::Zip, town.zip);
  record.Put(vendor::Phone1, phone());
  if (random.Chance(50)) record.Put(vendor::Phone1Ext, std::to_string(random.Between(10, 499)));
  if (random.Chance(60)) record.Put(vendor::Phone2, phone());
  record.Put(vendor::TaxIdNumber, fmt::format("93-{:07}", random.Below(10000000)));
  return record;
}

bool IsThere(const SampleShop& shop, std::string_view name) {
  return std::any_of(shop.vendors.begin(), shop.vendors.end(),
                     [&](const VendorRecord& each) { return EqualsIgnoringCase(each.View(vendor::VendorName), name); });
}

}  // namespace

// One of them has been deleted, and left its blank record behind.
void ImagineVendors(SampleShop& shop, const SampleOptions& options) {
  Random random(options.seed, kVendorStream);
  const auto add = [&](std::string_view name) {
    if (!IsThere(shop, name)) shop.vendors.push_back(ImagineVendor(random, name));
  };
  for (const std::string_view name : kPartsHouses) add(name);
  shop.vendors.emplace_back();
  for (const PoTag& order : shop.orders) add(order.View(potag::VendorName));
  for (const SampleEstimate& estimate : shop.estimates) {
    for (const de::Extra& sublet : estimate.sublets) add(sublet.VendorName);
  }
}

}  // namespace lantos::sample
