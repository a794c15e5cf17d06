#include <algorithm>
#include <limits>

#include "frame/Numbers.h"
#include "records/inventory/Inventory.h"

// The core of a part, which the customer brings back, is a part of its own under the part's number with "/C" behind it.
namespace lantos {

namespace {

constexpr std::string_view kCoreSuffix = "/C";
constexpr std::string_view kCorePrefix = "CORE: ";
constexpr std::string_view kCoreDepartment = "CORES";
constexpr std::int64_t kWhole = 1000000;  // Millionths

// The sum is rounded, not the markup alone.
Cents WithMarkup(Cents cost, Millionths markup) {
  const std::int64_t price = DivideHalfEven(std::int64_t{cost} * (kWhole + markup), kWhole);
  return static_cast<Cents>(
      std::clamp<std::int64_t>(price, std::numeric_limits<Cents>::min(), std::numeric_limits<Cents>::max()));
}

void FillCore(Inventory::Part& core, const InventoryRecord& part) {
  const std::string description = std::string(kCorePrefix) + part.Get(inventory::Description);
  core.master.Put(inventory::Description, description);
  core.tag.Put(inventorytag::Description, description);
  const Cents cost = part.Get(inventory::CoreCost);
  for (std::size_t level = 0; level < kPriceLevelNames.size(); ++level) {
    const Cents price = level == 0 ? cost : WithMarkup(cost, core.master.Get(inventory::MarkupPercent[level]));
    core.master.Put(inventory::Pricing[level], price);
    core.tag.Put(inventorytag::Pricing[level], price);
  }
  core.master.Put(inventory::Department, kCoreDepartment);
  core.master.Put(inventory::Manufacturer, part.View(inventory::Manufacturer));
}

}  // namespace

bool HasRoomForCore(std::string_view stockNumber) {
  return stockNumber.size() + kCoreSuffix.size() <= inventory::StockNumber.width;
}

bool IsCore(std::string_view stockNumber) { return stockNumber.ends_with(kCoreSuffix); }

void Inventory::UpdateCorePart(const InventoryRecord& part) {
  // Cut to the field it would be another part's number.
  if (!HasRoomForCore(part.View(inventory::StockNumber))) return;
  const std::string number = part.Get(inventory::StockNumber) + std::string(kCoreSuffix);
  UntilNotOvertaken([&] {
    PartIndex index = FindPart(number);
    if (index == kNoPart) {
      const NewPlace place = PlaceOfNew(number);
      index = Count();
      // Another copy may have made it a moment ago.
      if (place.taken == kNoLink) {
        AddPart(number, place, index);
      } else {
        KeepInList(place.tag, index, place.taken);
      }
    }
    std::optional<Part> core = Read(index);
    if (!core) return;
    FillCore(*core, part);
    Write(*core, index, Core::Stays, Broadcast::Yes);
  });
}

}  // namespace lantos
