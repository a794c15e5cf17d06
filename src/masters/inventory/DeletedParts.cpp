#include "masters/inventory/DeletedParts.h"

#include <array>

#include "records/Contention.h"

namespace lantos {

bool DeletedParts::Has(const InventoryTag& tag) {
  const FileLink master = tag.Get(inventorytag::Tag);
  if (master < 0 || !tag.View(inventorytag::StockNumber).empty()) return false;
  const FileIO& files = shop_.environment.files;
  const auto place = static_cast<std::uint64_t>(master) + inventory::Deleted.offset;
  if (!masters_) {
    if (!files.IsThere(kInventoryFile)) return false;
    Contention contention(contention::kOpenInventory, shop_.desktop, shop_.environment, kInventoryFile);
    contention.Run(
        [&] { masters_ = std::make_unique<SharedFile>(files.PathOf(kInventoryFile), Access::Read, Deny::None); });
  }
  std::array<std::byte, 1> deleted{};  // stays so past the end of the file
  masters_->ReadAt(place, deleted);
  return deleted[0] == std::byte{1};
}

}  // namespace lantos
