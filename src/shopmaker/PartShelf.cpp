#include "shopmaker/PartShelf.h"

#include "frame/Text.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos::sample {

namespace {

constexpr std::size_t kMost = 40;  // a shop uses the same few over and over

void PutOn(std::vector<std::size_t>& parts, std::size_t index) {
  if (parts.size() < kMost) parts.push_back(index);
}

}  // namespace

PartShelf::PartShelf(const SampleShop& shop) {
  std::map<std::string_view, const PartKindEntry*> kinds;
  for (const PartKindEntry& kind : kPartKinds) kinds[kind.prefix] = &kind;
  for (std::size_t i = 0; i < shop.parts.size(); ++i) {
    const std::string_view number = shop.partTags[i].View(inventorytag::StockNumber);
    if (number.empty() || number.ends_with("/C")) continue;
    const auto kind = kinds.find(number.substr(0, number.find('-')));
    if (kind == kinds.end()) continue;  // a kit
    Place(i, *kind->second, shop.partTags[i].View(inventorytag::Description));
  }
}

void PartShelf::Place(std::size_t index, const PartKindEntry& kind, std::string_view description) {
  Shelf& shelf = shelves_[static_cast<std::size_t>(kind.kind)];
  PutOn(shelf.any, index);
  if (!kind.Has(kFits)) return;
  // What stands between the name of the kind and the years is the make.
  const std::size_t make = kind.description.size() + 1;
  PutOn(shelf.byMake[std::string(description.substr(make, description.rfind(' ') - make))], index);
}

const std::vector<std::size_t>& PartShelf::Fitting(PartKind kind, std::string_view make) const {
  const Shelf& shelf = shelves_[static_cast<std::size_t>(kind)];
  const auto found = shelf.byMake.find(ToUpper(make));
  return found == shelf.byMake.end() ? shelf.any : found->second;
}

}  // namespace lantos::sample
