#include "records/inventory/NewParts.h"

#include "frame/Text.h"

namespace lantos {

NewPart AddNewPart(Inventory& inventory, std::string_view stockNumber, Inventory::PartIndex& index) {
  const std::string_view number = TrimView(stockNumber);
  if (inventory.FindPart(number) != Inventory::kNoPart) return NewPart::Exists;
  return inventory.NewInventoryPart(number, index) ? NewPart::Added : NewPart::Exists;
}

}  // namespace lantos
