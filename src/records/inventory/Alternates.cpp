#include <algorithm>
#include <iterator>

#include "records/inventory/Inventory.h"

// A part that names another as its alternate is an alternate of that one too.
namespace lantos {

void Inventory::CrossReferenceAlternate(std::string_view part, std::string_view oldAlternate,
                                        std::string_view newAlternate) {
  const std::string number = Trim(part);
  if (const PartIndex from = FindPart(oldAlternate); from != kNoPart) {
    UntilNotOvertaken([&] { ForgetAlternate(number, from); });
  }
  if (const PartIndex to = FindPart(newAlternate); to != kNoPart) {
    UntilNotOvertaken([&] { AddAlternate(number, to, Trim(newAlternate)); });
  }
}

void Inventory::ForgetAlternate(std::string_view part, PartIndex from) {
  std::optional<Part> other = Read(from);
  if (!other) return;
  bool isNamed = false;
  for (const TextField field : inventory::AltNumber) {
    if (other->master.View(field) != part) continue;
    other->master.Put(field, "");
    isNamed = true;
  }
  if (isNamed) Write(*other, from, Core::Stays, Broadcast::Yes);
}

void Inventory::AddAlternate(std::string_view part, PartIndex to, std::string_view named) {
  std::optional<Part> other = Read(to);
  if (!other) return;
  const auto find = [&other](std::string_view number) {
    return std::find_if(std::begin(inventory::AltNumber), std::end(inventory::AltNumber),
                        [&](TextField field) { return other->master.View(field) == number; });
  };
  if (find(part) != std::end(inventory::AltNumber)) return;
  const auto* free = find("");
  if (free == std::end(inventory::AltNumber)) {
    update_.LetGo();
    desktop_.Tell("Too many alternate parts on record for " + std::string(named), "Cross Reference Alternate Parts");
    return;
  }
  other->master.Put(*free, part);
  Write(*other, to, Core::Stays, Broadcast::Yes);
}

}  // namespace lantos
