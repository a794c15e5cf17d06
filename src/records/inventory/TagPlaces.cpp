#include "records/inventory/TagPlaces.h"

#include <algorithm>

#include "records/Contention.h"
#include "records/GivenUp.h"
#include "records/OpenedFile.h"
#include "records/RecordArray.h"

namespace lantos {

namespace {

constexpr std::size_t kBlock = 2048;  // tags

}  // namespace

void TagPlaces::Begin(const std::vector<Inventory::PartIndex>& wanted) {
  isWanted_.assign(static_cast<std::size_t>(inventory_.Count()), false);
  for (const Inventory::PartIndex index : wanted) isWanted_[static_cast<std::size_t>(index)] = true;
  wanted_ = wanted.size();
  end_ = wanted.empty() ? 0 : environment_.files.Length(kInventoryTagFile);
}

void TagPlaces::FindWhereFree(std::vector<Inventory::PartIndex> parts) {
  std::erase_if(parts, [this](Inventory::PartIndex part) { return inventory_.Location(part) != kNoLink; });
  std::sort(parts.begin(), parts.end());
  parts.erase(std::unique(parts.begin(), parts.end()), parts.end());
  try {
    Begin(parts);
    while (IsUnderWay()) {
      ReadBlock();
      NotePlaces();
    }
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
  }
  wanted_ = 0;
}

// Not among the numbered files: their closing is logged, and this is done for every block.
void TagPlaces::ReadBlock() {
  const std::size_t count = static_cast<std::size_t>(std::min<std::uint64_t>(end_ / InventoryTag::kLength, kBlock));
  const SharedFile file(environment_.files.PathOf(kInventoryTagFile), Access::Read, Deny::None);
  block_.resize(count);
  ReadRecords(file, end_ - count * InventoryTag::kLength, std::span(block_));
  end_ -= count * InventoryTag::kLength;
}

void TagPlaces::AskForBlock() {
  Contention contention(contention::kOpenInventory, desktop_, environment_, kInventoryTagFile);
  if (!contention.Run([this] { ReadBlock(); })) {
    throw GivenUp(std::string(kInventoryTagFile) + " could not be read.");
  }
}

template <class Look>
void TagPlaces::LookAtBlock(Look look) const {
  for (std::size_t i = block_.size(); i-- > 0;) {
    if (look(block_[i], LinkAtEnd(end_ + i * InventoryTag::kLength, kInventoryTagFile))) return;
  }
}

// Parts that nobody asked for are on the way: their places are noted too, which spares the next walk.
void TagPlaces::NotePlaces() {
  LookAtBlock([this](const InventoryTag& tag, FileLink place) {
    const Inventory::PartIndex index = inventory_.FindPart(tag.View(inventorytag::StockNumber));
    if (index == Inventory::kNoPart || inventory_.Location(index) != kNoLink) return false;
    inventory_.SetLocation(index, place);
    const auto number = static_cast<std::size_t>(index);
    if (number < isWanted_.size() && isWanted_[number]) --wanted_;
    return wanted_ == 0;
  });
}

void TagPlaces::Step() {
  AskForBlock();
  NotePlaces();
}

FileLink TagPlaces::FindByMaster(FileLink master) {
  FileLink found = kNoLink;
  wanted_ = 1;
  end_ = environment_.files.Length(kInventoryTagFile);
  while (IsUnderWay() && found == kNoLink) {
    AskForBlock();
    LookAtBlock([&](const InventoryTag& tag, FileLink place) {
      if (tag.Get(inventorytag::Tag) == master) found = place;
      return found != kNoLink;
    });
  }
  wanted_ = 0;
  return found;
}

}  // namespace lantos
