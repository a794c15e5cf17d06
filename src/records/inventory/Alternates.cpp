#include <algorithm>
#include <iterator>

#include "records/inventory/Inventory.h"

// A part that names another as its alternate is an alternate of that one too.
namespace lantos {

void Inventory::CrossReferenceAlternate(std::string_view part, std::string_view oldAlternate,
                                        std::string_view newAlternate) {
  const WorkingRecordsKept kept(*this);
  const std::string number = Trim(part);
  if (const PartIndex from = FindPart(oldAlternate); from != kNoPart) ForgetAlternate(number, from);
  if (const PartIndex to = FindPart(newAlternate); to != kNoPart) AddAlternate(number, to, Trim(newAlternate));
}

void Inventory::ForgetAlternate(std::string_view part, PartIndex from) {
  FileLink offset = kNoLink;
  if (!ReadInventory(offset, from)) return;
  bool isNamed = false;
  for (const TextField field : inventory::AltNumber) {
    if (CurrentInv.View(field) != part) continue;
    CurrentInv.Put(field, "");
    isNamed = true;
  }
  if (isNamed) WriteInventory(offset, from, false, true);
}

void Inventory::AddAlternate(std::string_view part, PartIndex to, std::string_view named) {
  FileLink offset = kNoLink;
  if (!ReadInventory(offset, to)) return;
  const auto find = [this](std::string_view number) {
    return std::find_if(std::begin(inventory::AltNumber), std::end(inventory::AltNumber),
                        [&](TextField field) { return CurrentInv.View(field) == number; });
  };
  if (find(part) != std::end(inventory::AltNumber)) return;
  const auto* free = find("");
  if (free == std::end(inventory::AltNumber)) {
    desktop_.Tell("Too many alternate parts on record for " + std::string(named), "Cross Reference Alternate Parts");
    return;
  }
  CurrentInv.Put(*free, part);
  WriteInventory(offset, to, false, true);
}

}  // namespace lantos
