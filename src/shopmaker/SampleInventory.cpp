#include <fmt/format.h>

#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/inventory/InventoryLayout.h"
#include "records/modSystem.h"
#include "shopmaker/Random.h"
#include "shopmaker/SampleMakes.h"
#include "shopmaker/SampleSteps.h"

namespace lantos::sample {

namespace {

constexpr std::int64_t kWhole = 1000000;  // Millionths
constexpr std::string_view kShelfRows = "ABCDEF";
constexpr std::size_t kNoPart = static_cast<std::size_t>(-1);

void SetStock(Random& random, InventoryRecord& part) {
  const bool stocked = random.Chance(75);
  const std::int16_t reorder = static_cast<std::int16_t>(stocked ? random.Between(1, 6) : 0);
  part.Put(inventory::IsStocked, stocked ? 1 : 0);
  part.Put(inventory::ReorderLevel, reorder);
  part.Put(inventory::IdealLevel, static_cast<std::int16_t>(reorder * 3));
  part.Put(inventory::QtyInStock, static_cast<std::int16_t>(stocked ? random.Below(reorder * 3 + 4) : 0));
  if (!stocked) return;
  const char row = random.Pick(kShelfRows);
  const std::int32_t shelf = random.Between(1, 12);
  part.Put(inventory::Location, fmt::format("{}{}-{}", row, shelf, random.Between(1, 6)));
}

std::string DescriptionOf(Random& random, const PartKindEntry& kind) {
  if (!kind.Has(kFits)) return fmt::format("{} {}", kind.description, random.Pick(kManufacturers));
  const ModelEntry& model = random.Pick(kModels);
  const std::string make = ToUpper(model.make);
  return fmt::format("{} {} {:02}+", kind.description, make, (model.firstYear + random.Below(6)) % 100);
}

InventoryRecord ImaginePart(Random& random, const PartKindEntry& kind, std::size_t index, const SystemRecord& system) {
  InventoryRecord part;
  part.Put(inventory::StockNumber, fmt::format("{}-{:05}", kind.prefix, 1000 + index));
  part.Put(inventory::Description, DescriptionOf(random, kind));
  part.Put(inventory::Department, kind.department);
  part.Put(inventory::Manufacturer, random.Pick(kManufacturers));
  SetPrices(part, random.Between(kind.lowCost, kind.highCost), system);
  SetStock(random, part);
  if (kind.Has(kWaste)) {
    part.Put(inventory::HasWaste, 1);
    part.Put(inventory::DisposalFee, 50);
  }
  part.Put(inventory::UsageLink, kNoLink);
  part.Put(inventory::ReceivingLink, kNoLink);
  return part;
}

// The core of a part is a part of its own, under the number with "/C" behind it.
InventoryRecord CoreOf(const InventoryRecord& part, const SystemRecord& system) {
  InventoryRecord core;
  core.Put(inventory::StockNumber, part.Get(inventory::StockNumber) + "/C");
  core.Put(inventory::Description, "CORE: " + part.Get(inventory::Description));
  core.Put(inventory::Department, "CORES");
  core.Put(inventory::Manufacturer, part.Get(inventory::Manufacturer));
  SetPrices(core, part.Get(inventory::CoreCost), system);
  core.Put(inventory::UsageLink, kNoLink);
  core.Put(inventory::ReceivingLink, kNoLink);
  return core;
}

InventoryTag TagOf(const InventoryRecord& part, FileLink offset) {
  InventoryTag tag;
  const bool deleted = part.Get(inventory::Deleted) == 1;
  if (!deleted) tag.Put(inventorytag::StockNumber, part.Get(inventory::StockNumber));
  tag.Put(inventorytag::Description, part.Get(inventory::Description));
  for (std::size_t level = 0; level < 4; ++level) {
    tag.Put(inventorytag::Pricing[level], part.Get(inventory::Pricing[level]));
  }
  tag.Put(inventorytag::InStock, part.Get(inventory::QtyInStock));
  tag.Put(inventorytag::Tag, offset);
  tag.Put(inventorytag::IsStocked, part.Get(inventory::IsStocked));
  return tag;
}

// Now and then two parts of one kind stand for each other; each names the other.
void CrossReference(Random& random, InventoryRecord& one, InventoryRecord& other) {
  if (!random.Chance(5)) return;
  if (one.Get(inventory::Deleted) == 1 || other.Get(inventory::Deleted) == 1) return;
  if (!other.View(inventory::AltNumber[0]).empty()) return;
  one.Put(inventory::AltNumber[0], other.Get(inventory::StockNumber));
  other.Put(inventory::AltNumber[0], one.Get(inventory::StockNumber));
}

}  // namespace

void SetPrices(InventoryRecord& part, Cents cost, const SystemRecord& system) {
  for (std::size_t level = 0; level < 4; ++level) {
    const std::int32_t markup = system.Get(sysrec::markups[level]);
    part.Put(inventory::MarkupPercent[level], markup);
    part.Put(inventory::Pricing[level],
             cost + static_cast<Cents>(DivideHalfEven(static_cast<std::int64_t>(cost) * markup, kWhole)));
  }
}

void AddPart(SampleShop& shop, const InventoryRecord& part) {
  shop.partTags.push_back(TagOf(part, static_cast<FileLink>(shop.parts.size() * InventoryRecord::kLength)));
  shop.parts.push_back(part);
}

void ImagineParts(SampleShop& shop, const SampleOptions& options) {
  Random random(options.seed, kPartStream);
  const auto count = static_cast<std::size_t>(options.parts - KitCount(options));
  shop.parts.reserve(count);
  std::array<std::size_t, kPartKindCount> lastOfKind;
  lastOfKind.fill(kNoPart);
  for (std::size_t turn = 0; shop.parts.size() < count; ++turn) {
    const PartKindEntry& kind = kPartKinds[turn % kPartKindCount];
    std::size_t& last = lastOfKind[turn % kPartKindCount];
    InventoryRecord part = ImaginePart(random, kind, turn, shop.system);
    const bool withCore = kind.Has(kCore) && shop.parts.size() + 2 <= count;
    if (withCore) {
      part.Put(inventory::HasACore, 1);
      part.Put(inventory::CoreCost, part.Get(inventory::Pricing[0]) / 4);
    } else if (turn >= kPartKindCount && random.Chance(1)) {
      part.Put(inventory::Deleted, 1);
    }
    shop.parts.push_back(part);
    if (last != kNoPart) CrossReference(random, shop.parts.back(), shop.parts[last]);
    last = shop.parts.size() - 1;
    if (withCore) shop.parts.push_back(CoreOf(part, shop.system));
  }
  shop.partTags.reserve(count);
  for (std::size_t i = 0; i < shop.parts.size(); ++i) {
    shop.partTags.push_back(TagOf(shop.parts[i], static_cast<FileLink>(i * InventoryRecord::kLength)));
  }
}

}  // namespace lantos::sample
