#include "records/inventory/NewerTag.h"

#include <algorithm>

namespace lantos {

namespace {

// In what the list shows; bytes behind a text's end don't count.
bool SameFigures(const InventoryTag& a, const InventoryTag& b) {
  return a.View(inventorytag::StockNumber) == b.View(inventorytag::StockNumber) &&
         a.View(inventorytag::Description) == b.View(inventorytag::Description) &&
         a.Get(inventorytag::InStock) == b.Get(inventorytag::InStock) &&
         a.Get(inventorytag::Tag) == b.Get(inventorytag::Tag) &&
         a.Get(inventorytag::IsStocked) == b.Get(inventorytag::IsStocked) &&
         std::all_of(std::begin(inventorytag::Pricing), std::end(inventorytag::Pricing),
                     [&](LongField price) { return a.Get(price) == b.Get(price); });
}

}  // namespace

const InventoryTag& NewerTag::Choose(Inventory::PartIndex part, const InventoryTag& listed,
                                     const InventoryTag& received, const InventoryTag& inFile, LocalTime now) {
  if (followed_.contains(part)) {
    if (!SameFigures(received, inFile)) ahead_[part] = {inFile, now};  // looked at once more
    return inFile;
  }
  const auto ahead = ahead_.find(part);
  const InventoryTag& known = ahead == ahead_.end() ? listed : ahead->second.inFile;
  if (SameFigures(received, inFile) || !SameFigures(inFile, known)) {
    Follow(part);
    return inFile;
  }
  // The file is as it was when it was read for the list.
  ahead_[part] = {inFile, now};
  return received;
}

void NewerTag::Follow(Inventory::PartIndex part) {
  followed_.insert(part);
  ahead_.erase(part);
}

std::vector<Inventory::PartIndex> NewerTag::AheadOfFile(LocalTime now, std::int64_t milliseconds) const {
  std::vector<Inventory::PartIndex> parts;
  for (const auto& [part, ahead] : ahead_) {
    if (now.MillisecondsSince(ahead.since) >= milliseconds) parts.push_back(part);
  }
  return parts;
}

}  // namespace lantos
