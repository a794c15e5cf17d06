#include <algorithm>

#include "records/Contention.h"
#include "records/OpenedFile.h"
#include "records/inventory/Inventory.h"

// The parts on disk: tag and master, one after the other, each under an open of its own.
namespace lantos {

namespace {

constexpr std::size_t kScanBlock = 128;  // tags

// Bytes behind the text's end stay when there is nothing to trim.
template <std::size_t Length>
void TrimField(Record<Length>& record, TextField field) {
  std::string_view stored(reinterpret_cast<const char*>(record.Bytes().data()) + field.offset, field.width);
  stored = stored.substr(0, stored.find('\0'));
  if (stored != record.View(field)) record.Put(field, record.View(field));
}

// A part without a description is listed under its number.
template <std::size_t Length>
void NameUnnamed(Record<Length>& record, TextField description, TextField stockNumber) {
  TrimField(record, description);
  if (record.View(description).empty()) record.Put(description, record.View(stockNumber));
}

void RequireLink(FileLink link, const std::string& what) {
  if (link < 0) throw FileError(FileErrorNumber::DeviceIo, what + " at offset " + std::to_string(link));
}

}  // namespace

FileHandle Inventory::OpenWithoutEnd(std::string_view name, Access access, Deny deny) {
  FileHandle file = kNoHandle;
  Contention contention(contention::kOpenInventory, desktop_, environment_, name);
  contention.Run([&] { file = environment_.openFiles.Open(name, access, deny); });
  return file;
}

FileHandle Inventory::OpenInventoryTagForWrite() { return OpenWithoutEnd(kInventoryTagFile, Access::Write, Deny::All); }
FileHandle Inventory::OpenInventoryForWrite() { return OpenWithoutEnd(kInventoryFile, Access::Write, Deny::All); }

// From the end: parts whose place isn't known are the ones added last. The steps are counted from the very end, even
// of a damaged file that isn't a row of whole tags.
FileLink Inventory::FindTagLocation(PartIndex index) {
  const std::string number = Tag(index).Get(inventorytag::StockNumber);
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenWithoutEnd(kInventoryTagFile, Access::Read, Deny::None));
  std::vector<InventoryTag> block(kScanBlock);
  for (std::uint64_t end = file->Length(); end >= InventoryTag::kLength;) {
    const std::size_t count =
        static_cast<std::size_t>(std::min<std::uint64_t>(end / InventoryTag::kLength, kScanBlock));
    end -= count * InventoryTag::kLength;
    file->ReadAt(end, std::as_writable_bytes(std::span(block).first(count)));
    for (std::size_t i = count; i-- > 0;) {
      if (block[i].View(inventorytag::StockNumber) != number) continue;
      return LinkAtEnd(end + i * InventoryTag::kLength, kInventoryTagFile);
    }
  }
  return kNoLink;
}

FileLink Inventory::KnownLocation(PartIndex index) {
  FileLink& location = locations_.at(static_cast<std::size_t>(index));
  if (location == kNoLink) location = FindTagLocation(index);
  return location;
}

bool Inventory::ReadTag(const ContentionRule& rule, PartIndex index, InventoryTag& tag) {
  const std::string number = Tag(index).Get(inventorytag::StockNumber);
  KnownLocation(index);
  OpenedFile file(environment_.openFiles);
  Contention contention(rule, desktop_, environment_, number);
  return contention.Run([&] { file.Open(kInventoryTagFile, Access::Read, Deny::None); }) && contention.Run([&] {
    const FileLink location = KnownLocation(index);
    RequireLink(location, "tag of " + number);
    ReadRecord(*file, location, tag);
  });
}

bool Inventory::ReadInventoryTag(PartIndex index, InventoryTag& tag) {
  return ReadTag(contention::kReadInventoryTag, index, tag);
}

bool Inventory::ReadInventory(FileLink& offset, PartIndex index) {
  if (!ReadTag(contention::kReadInventory, index, CurrentInvTag)) return false;
  if (offset == kNoLink) offset = CurrentInvTag.Get(inventorytag::Tag);
  const std::string number = Tag(index).Get(inventorytag::StockNumber);
  OpenedFile file(environment_.openFiles);
  Contention contention(contention::kReadInventory, desktop_, environment_, number);
  const bool isRead =
      contention.Run([&] { file.Open(kInventoryFile, Access::Read, Deny::None); }) && contention.Run([&] {
        RequireLink(offset, "master of " + number);
        ReadRecord(*file, offset, CurrentInv);
      });
  if (isRead) OriginalInv = CurrentInv;
  return isRead;
}

void Inventory::WriteInventory(FileLink offset, PartIndex index, bool keepCore, bool broadcast) {
  RequireLink(offset, "master of " + CurrentInv.Get(inventory::StockNumber));
  if (CurrentInv.Get(inventory::Deleted) != 1) {
    NameUnnamed(CurrentInv, inventory::Description, inventory::StockNumber);
    NameUnnamed(CurrentInvTag, inventorytag::Description, inventorytag::StockNumber);
  }
  WriteTag(index);
  WriteMaster(offset);
  if (broadcast && onBroadcast) onBroadcast();
  const bool hasCore = CurrentInv.Get(inventory::HasACore) == 1;
  if (keepCore && hasCore && !IsCore(CurrentInv.View(inventory::StockNumber))) UpdateCorePart();
}

void Inventory::WriteTag(PartIndex index) {
  // Sought before the file is held: the search opens it as well, and would wait for us for ever.
  FileLink location = index < Count() ? KnownLocation(index) : kNoLink;
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenInventoryTagForWrite());
  // A part that the list has and the file has not goes to the end too, as nothing else can be its place.
  if (location == kNoLink) location = LinkAtEnd(file->Length(), kInventoryTagFile);
  TrimField(CurrentInv, inventory::StockNumber);
  TrimField(CurrentInvTag, inventorytag::StockNumber);
  environment_.log.Write("WriteInventory " + CurrentInv.Get(inventory::StockNumber) +
                         " In stock=" + std::to_string(CurrentInv.Get(inventory::QtyInStock)));
  CurrentInvTag.Put(inventorytag::IsStocked, CurrentInv.Get(inventory::IsStocked));
  WriteRecord(*file, location, CurrentInvTag);
  file.Close();
  KeepInList(index, location);
}

void Inventory::KeepInList(PartIndex index, FileLink location) {
  const bool isNew = index >= Count();
  while (Count() < index) AppendTag({});
  if (isNew) {
    AppendTag(CurrentInvTag);
  } else {
    ReplaceTag(index, CurrentInvTag);
  }
  locations_.at(static_cast<std::size_t>(index)) = location;
  if (isNew && onCountChanged) onCountChanged();
}

void Inventory::WriteMaster(FileLink offset) {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenInventoryForWrite());
  WriteRecord(*file, offset, CurrentInv);
}

void Inventory::NewInventoryPart(std::string_view stockNumber, PartIndex& index) {
  CurrentInvTag = {};
  CurrentInv = {};
  const std::string_view number = TrimView(stockNumber);
  CurrentInvTag.Put(inventorytag::StockNumber, number);
  CurrentInv.Put(inventory::StockNumber, number);
  const FileLink offset = LinkAtEnd(environment_.files.Length(kInventoryFile), kInventoryFile);
  CurrentInvTag.Put(inventorytag::Tag, offset);
  for (std::size_t level = 0; level < kPriceLevelNames.size(); ++level) {
    CurrentInv.Put(inventory::MarkupPercent[level], system_.SysRec.Get(sysrec::markups[level]));
  }
  CurrentInv.Put(inventory::UsageLink, kNoLink);
  CurrentInv.Put(inventory::ReceivingLink, kNoLink);
  index = Count();
  WriteInventory(offset, index, true, true);
  if (!IsCore(CurrentInv.View(inventory::StockNumber)) && onNewPart) onNewPart(offset, index);
}

}  // namespace lantos
