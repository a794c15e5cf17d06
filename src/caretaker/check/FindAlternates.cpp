#include <algorithm>
#include <array>
#include <unordered_map>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

namespace {

constexpr std::size_t kAlternates = std::size(inventory::AltNumber);
using Alternates = std::array<std::string_view, kAlternates>;

Alternates AlternatesOf(const InventoryRecord& part) {
  Alternates names;
  for (std::size_t i = 0; i < kAlternates; ++i) names[i] = part.View(inventory::AltNumber[i]);
  return names;
}

bool Names(const Alternates& names, std::string_view number) {
  return std::find(names.begin(), names.end(), number) != names.end();
}

}  // namespace

// An alternate that is no part of the shop has nothing to point back with, and one whose four are full has no room: the
// screens leave both as they are.
void FindAlternates(ShopView& shop, const Tell& tell) {
  const auto parts = shop.flat.Records<InventoryRecord>(kInventoryFile);
  std::unordered_map<std::string_view, std::size_t> places;
  std::unordered_map<std::size_t, Alternates> mended;  // by what was told so far
  places.reserve(parts.size());
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (parts[i].Get(inventory::Deleted) != 1) places.emplace(parts[i].View(inventory::StockNumber), i);
  }
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::string_view number = parts[i].View(inventory::StockNumber);
    if (number.empty() || parts[i].Get(inventory::Deleted) == 1) continue;
    for (const std::string_view alternate : AlternatesOf(parts[i])) {
      if (alternate.empty() || alternate == number) continue;
      const auto found = places.find(alternate);
      if (found == places.end()) continue;
      const std::size_t other = found->second;
      Alternates back = mended.contains(other) ? mended[other] : AlternatesOf(parts[other]);
      const auto free = std::find(back.begin(), back.end(), "");
      if (Names(back, number) || free == back.end()) continue;
      const TextField field = inventory::AltNumber[free - back.begin()];
      *free = number;
      mended[other] = back;
      std::string bytes(number);
      bytes.resize(field.width, '\0');
      tell({std::string(kInventoryFile),
            PartWords(other, alternate),
            "AltNumber",
            fmt::format("part {} has it for an alternate, and it doesn't name that part", number),
            {fmt::format("{} is its alternate too from here on", number),
             {{std::string(kInventoryFile), PlaceOf<InventoryRecord>(other) + field.offset, std::move(bytes)}}}});
    }
  }
}

}  // namespace lantos
