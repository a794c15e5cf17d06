#include "records/inventory/TagsOnFile.h"

#include "records/Contention.h"

namespace lantos {

TagsOnFile::Outcome TagsOnFile::Read(Inventory::PartIndex index, InventoryTag& tag) {
  const std::string number = inventory_.Tag(index).Get(inventorytag::StockNumber);
  if (!ReadOrAsk(PlaceOf(index), number, tag)) return Outcome::GivenUp;
  return tag.View(inventorytag::StockNumber) == number ? Outcome::Read : Outcome::PlaceUnknown;
}

FileLink TagsOnFile::PlaceOf(Inventory::PartIndex index) const {
  const FileLink place = inventory_.Location(index);
  if (place != kNoLink) return place;
  return LinkAtEnd(static_cast<std::uint64_t>(index) * InventoryTag::kLength, kInventoryTagFile);
}

TagsOnFile::Outcome TagsOnFile::SeekAndRead(Inventory::PartIndex index, InventoryTag& tag) {
  const FileLink place = Seek(index);
  if (place == kNoLink) return Outcome::NotThere;
  const std::string number = inventory_.Tag(index).Get(inventorytag::StockNumber);
  return ReadOrAsk(place, number, tag) ? Outcome::Read : Outcome::GivenUp;
}

FileLink TagsOnFile::Seek(Inventory::PartIndex index) {
  if (notThere_.contains(index)) return kNoLink;
  const FileLink place = inventory_.FindTagLocation(index);
  if (place == kNoLink) {
    notThere_.insert(index);
  } else {
    inventory_.SetLocation(index, place);
  }
  return place;
}

bool TagsOnFile::ReadOrAsk(FileLink place, const std::string& number, InventoryTag& tag) {
  Contention contention(contention::kReadTagOfChange, desktop_, environment_, number);
  return contention.Run([&] {
    if (!file_.IsOpen()) file_.Open(kInventoryTagFile, Access::Read, Deny::None);
    ReadRecord(*file_, place, tag);
  });
}

bool TagsOnFile::ReadQuietly(Inventory::PartIndex index, InventoryTag& tag) {
  try {
    if (!file_.IsOpen()) file_.Open(kInventoryTagFile, Access::Read, Deny::None);
    ReadRecord(*file_, PlaceOf(index), tag);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace lantos
