#include "records/inventory/NewParts.h"

#include "frame/Text.h"
#include "frame/UpdateTurns.h"
#include "records/AskedTurn.h"
#include "records/Contention.h"
#include "records/GivenUp.h"
#include "records/OpenedFile.h"

namespace lantos {

namespace {

constexpr std::size_t kBlockTags = 1024;

bool TagFileHas(Environment& environment, ui::Desktop& desktop, std::string_view stockNumber) {
  OpenedFile file(environment.openFiles);
  Contention contention(contention::kOpenInventory, desktop, environment, kInventoryTagFile);
  if (!contention.Run([&] { file.Open(kInventoryTagFile, Access::Read, Deny::None); })) {
    throw GivenUp(std::string(kInventoryTagFile) + " could not be read. The part was not added.");
  }
  std::vector<InventoryTag> block(kBlockTags);
  const std::uint64_t length = file->Length();
  for (std::uint64_t offset = 0; offset < length; offset += kBlockTags * InventoryTag::kLength) {
    file->ReadAt(offset, std::as_writable_bytes(std::span(block)));  // past the end of the file the tags are blank
    for (const InventoryTag& tag : block) {
      if (tag.View(inventorytag::StockNumber) == stockNumber) return true;
    }
  }
  return false;
}

}  // namespace

// The turn is at the file of the masters: the part that is added has its own at the tag file.
NewPart AddNewPart(Inventory& inventory, Environment& environment, ui::Desktop& desktop, std::string_view stockNumber,
                   Inventory::PartIndex& index) {
  const std::string_view number = TrimView(stockNumber);
  if (inventory.FindPart(number) != Inventory::kNoPart) return NewPart::Exists;
  UpdateTurns turns(environment.files.PathOf(kInventoryFile), environment.clock);
  const AskedTurn turn(turns, desktop, kInventoryFile);
  if (TagFileHas(environment, desktop, number)) return NewPart::Exists;
  inventory.NewInventoryPart(number, index);
  return NewPart::Added;
}

}  // namespace lantos
