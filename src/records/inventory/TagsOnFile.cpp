#include "records/inventory/TagsOnFile.h"

#include "records/Contention.h"

namespace lantos {

TagsOnFile::Outcome TagsOnFile::Read(Inventory::PartIndex index, InventoryTag& tag) {
  const std::string number = inventory_.Tag(index).Get(inventorytag::StockNumber);
  FileLink place = inventory_.Location(index);
  if (place == kNoLink) place = Seek(index);
  if (place == kNoLink) return Outcome::NotThere;
  if (!ReadOrAsk(place, number, tag)) return Outcome::GivenUp;
  if (tag.View(inventorytag::StockNumber) == number) return Outcome::Read;
  // Another copy has given that place another number, and a part of this one is somewhere else now.
  place = Seek(index);
  if (place == kNoLink) return Outcome::NotThere;
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

bool TagsOnFile::ReadAt(FileLink place, InventoryTag& tag) {
  try {
    if (!file_.IsOpen()) file_.Open(kInventoryTagFile, Access::Read, Deny::None);
    ReadRecord(*file_, place, tag);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace lantos
