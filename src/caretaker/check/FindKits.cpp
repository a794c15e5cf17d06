#include <unordered_set>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "records/CannedLabor.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/InventoryKits.h"

namespace lantos {

// A deleted part keeps its number, and its core and its place in kits with it: that is how the screens leave it.
void FindKits(ShopView& shop, const Tell& tell) {
  const auto parts = shop.flat.Records<InventoryRecord>(kInventoryFile);
  std::unordered_set<std::string_view> known;
  known.reserve(parts.size());
  for (const InventoryRecord& part : parts) known.insert(part.View(inventory::StockNumber));
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::string_view number = parts[i].View(inventory::StockNumber);
    if (parts[i].Get(inventory::Deleted) == 1 || !IsCore(number)) continue;
    const std::string_view part = number.substr(0, number.size() - 2);
    if (part.empty() || known.contains(part)) continue;
    tell({std::string(kInventoryFile), PartWords(i, number), "StockNumber",
          fmt::format("it is the core of a part, {}, that isn't there", part)});
  }
  const auto kits = shop.flat.Records<InventoryKitRecord>(kKitFile);
  for (std::size_t i = 0; i < kits.size(); ++i) {
    const std::string_view kit = kits[i].View(inventorykit::KitNumber);
    if (kit.empty()) continue;
    const std::string record = fmt::format("{} (kit {})", RecordWords(i), kit);
    if (!known.contains(kit)) tell({std::string(kKitFile), record, "KitNumber", "there is no such part"});
    for (const KitComponent& component : ComponentsOf(kits[i])) {
      if (!known.contains(component.partNumber)) {
        tell({std::string(kKitFile), record, "Lines", fmt::format("there is no part {}", component.partNumber)});
      }
    }
  }
}

}  // namespace lantos
