#include "masters/inventory/DeletedParts.h"

#include <array>

#include "records/Contention.h"

namespace lantos {

bool DeletedParts::Has(const InventoryTag& tag) {
  const FileLink master = tag.Get(inventorytag::Tag);
  if (master < 0 || !tag.View(inventorytag::StockNumber).empty()) return false;
  if (!tried_) Open();
  if (!masters_) return false;
  std::array<std::byte, 1> deleted{};  // stays so past the end of the file
  masters_->ReadAt(static_cast<std::uint64_t>(master) + inventory::Deleted.offset, deleted);
  return deleted[0] == std::byte{1};
}

void DeletedParts::Open() {
  tried_ = true;
  try {
    Contention contention(contention::kMomentsPatience, shop_.environment);
    contention.Run([this] {
      const auto path = shop_.environment.files.PathOf(kInventoryFile);
      masters_ = std::make_unique<SharedFile>(path, Access::Read, Deny::None, Absent::Fail);
    });
  } catch (const FileError& error) {
    shop_.environment.log.Write(error.what());
  }
}

}  // namespace lantos
