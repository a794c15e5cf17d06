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

}  // namespace

bool Inventory::IsCore(std::string_view stockNumber) { return stockNumber.ends_with(kCoreSuffix); }

void Inventory::UpdateCorePart() {
  const WorkingRecordsKept kept(*this);
  const std::string number = kept.Master().Get(inventory::StockNumber) + std::string(kCoreSuffix);
  // Cut to the field it would be another part's number.
  if (number.size() > inventory::StockNumber.width) return;
  PartIndex index = FindPart(number);
  if (index == kNoPart) NewInventoryPart(number, index);
  FileLink offset = kNoLink;
  if (!ReadInventory(offset, index)) return;
  FillCore(kept.Master());
  WriteInventory(offset, index, false, true);
}

void Inventory::FillCore(const InventoryRecord& part) {
  const std::string description = std::string(kCorePrefix) + part.Get(inventory::Description);
  CurrentInv.Put(inventory::Description, description);
  CurrentInvTag.Put(inventorytag::Description, description);
  const Cents cost = part.Get(inventory::CoreCost);
  for (std::size_t level = 0; level < kPriceLevelNames.size(); ++level) {
    const Cents price = level == 0 ? cost : WithMarkup(cost, CurrentInv.Get(inventory::MarkupPercent[level]));
    CurrentInv.Put(inventory::Pricing[level], price);
    CurrentInvTag.Put(inventorytag::Pricing[level], price);
  }
  CurrentInv.Put(inventory::Department, kCoreDepartment);
  CurrentInv.Put(inventory::Manufacturer, part.View(inventory::Manufacturer));
}

}  // namespace lantos
