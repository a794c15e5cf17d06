#include <algorithm>
#include <set>
#include <utility>

#include "records/Contention.h"
#include "records/GivenUp.h"
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

// A master of zeros is nobody's, and the tag of a deleted part has no number.
bool IsAnothers(const InventoryRecord& master, const InventoryTag& tag) {
  const std::string_view number = master.View(inventory::StockNumber);
  const std::string_view wanted = tag.View(inventorytag::StockNumber);
  return !number.empty() && !wanted.empty() && number != wanted;
}

// The person may have been asked since it was written.
bool IsStillThere(const SharedFile& file, FileLink location, const InventoryTag& tag) {
  InventoryTag onFile;
  ReadRecord(file, location, onFile);
  return onFile == tag;
}

void TellOfAnothers(ui::Desktop& desktop, const Inventory::Part& part) {
  desktop.Tell("Part " + part.tag.Get(inventorytag::StockNumber) + " can't be shown: its tag in " +
                   std::string(kInventoryTagFile) + " leads to the record of part " +
                   part.master.Get(inventory::StockNumber) + " in " + std::string(kInventoryFile) +
                   ".\rNeither is changed. Have the files repaired.",
               "ReadInventory", ui::Icon::Exclamation);
}

// Where one of the two stays as it is, nothing can be half done.
void NoteAhead(WriteAhead* ahead, const Inventory::Part& part, FileLink location, const std::string& tagBefore) {
  const std::string tag = TextOf(part.tag);
  if (ahead == nullptr || tag == tagBefore || part.master == part.onFile) return;
  ahead->Note("Part " + part.master.Get(inventory::StockNumber),
              {{std::string(kInventoryTagFile), static_cast<std::uint64_t>(location), tagBefore, tag},
               {std::string(kInventoryFile), static_cast<std::uint64_t>(part.offset),
                part.onFile ? TextOf(*part.onFile) : "", TextOf(part.master)}});
}

}  // namespace

Inventory::OneUpdate::OneUpdate(Inventory& inventory)
    : inventory_(inventory),
      names_(inventory.environment_.files),
      turns_(inventory.environment_.files.PathOf(kInventoryTagFile), inventory.environment_.clock),
      turn_(turns_, inventory.desktop_, kInventoryTagFile),
      ahead_(inventory.environment_) {
  inventory_.update_.Begin(turn_, ahead_);
}

void Inventory::SizeArrays() { Clear(environment_.files.Length(kInventoryTagFile) / InventoryTag::kLength); }

FileHandle Inventory::OpenWithoutEnd(std::string_view name, Access access, Deny deny,
                                     const std::function<void()>& beforeAsking) {
  FileHandle file = kNoHandle;
  Contention contention(contention::kOpenInventory, desktop_, environment_, name);
  update_.LetGoWhileAsked(contention);
  contention.BeforeAsking(beforeAsking);
  if (!contention.Run([&] { file = environment_.openFiles.Open(name, access, deny); })) {
    throw GivenUp(std::string(name) + " could not be opened.");
  }
  return file;
}

FileHandle Inventory::OpenInventoryTagForWrite() {
  return OpenWithoutEnd(kInventoryTagFile, Access::ReadWrite, Deny::All);
}
FileHandle Inventory::OpenInventoryForWrite(const std::function<void()>& beforeAsking) {
  return OpenWithoutEnd(kInventoryFile, Access::Write, Deny::All, beforeAsking);
}

// From the end: parts whose place isn't known are the ones added last. The steps are counted from the very end, even
// of a damaged file that isn't a row of whole tags.
FileLink Inventory::FindTagLocation(PartIndex index) {
  const std::string number = Tag(index).Get(inventorytag::StockNumber);
  return FindTagOf(number, Tag(index).Get(inventorytag::Tag));
}

FileLink Inventory::FindTagOf(std::string_view stockNumber, FileLink master) {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenWithoutEnd(kInventoryTagFile, Access::Read, Deny::None));
  std::vector<InventoryTag> block(kScanBlock);
  for (std::uint64_t end = file->Length(); end >= InventoryTag::kLength;) {
    const std::size_t count =
        static_cast<std::size_t>(std::min<std::uint64_t>(end / InventoryTag::kLength, kScanBlock));
    end -= count * InventoryTag::kLength;
    file->ReadAt(end, std::as_writable_bytes(std::span(block).first(count)));
    for (std::size_t i = count; i-- > 0;) {
      if (block[i].View(inventorytag::StockNumber) != stockNumber) continue;
      // Deleted parts have no number either.
      if (stockNumber.empty() && block[i].Get(inventorytag::Tag) != master) continue;
      return LinkAtEnd(end + i * InventoryTag::kLength, kInventoryTagFile);
    }
  }
  return kNoLink;
}

FileLink Inventory::KnownLocation(PartIndex index) {
  if (Location(index) == kNoLink) SetLocation(index, FindTagLocation(index));
  return Location(index);
}

bool Inventory::ReadTag(const ContentionRule& rule, PartIndex index, InventoryTag& tag) {
  const std::string number = Tag(index).Get(inventorytag::StockNumber);
  KnownLocation(index);
  OpenedFile file(environment_.openFiles);
  Contention contention(rule, desktop_, environment_, number);
  update_.LetGoWhileAsked(contention);
  return contention.Run([&] { file.Open(kInventoryTagFile, Access::Read, Deny::None); }) && contention.Run([&] {
    const FileLink location = KnownLocation(index);
    RequireLink(location, "tag of " + number);
    ReadRecord(*file, location, tag);
  });
}

bool Inventory::ReadInventoryTag(PartIndex index, InventoryTag& tag) {
  return ReadTag(contention::kReadInventoryTag, index, tag);
}

// Tag and master are those of one turn.
std::optional<Inventory::Part> Inventory::ReadAt(FileLink offset, PartIndex index) {
  Part part;
  if (!update_.Have()) return std::nullopt;
  do {
    update_.NoteReading();
    if (!ReadTag(contention::kReadInventory, index, part.tag)) return std::nullopt;
    part.offset = offset == kNoLink ? part.tag.Get(inventorytag::Tag) : offset;
    if (!ReadMaster(part, index)) return std::nullopt;
  } while (update_.IsOvertaken());
  const std::string number = Tag(index).Get(inventorytag::StockNumber);
  // Of a part that another copy has renumbered meanwhile the caller tells.
  const bool isListed = part.tag.View(inventorytag::StockNumber) == number;
  if (isListed && part.offset == part.tag.Get(inventorytag::Tag) && IsAnothers(part.master, part.tag)) {
    update_.LetGo();
    TellOfAnothers(desktop_, part);
    return std::nullopt;
  }
  return part;
}

bool Inventory::ReadMaster(Part& part, PartIndex index) {
  const std::string number = Tag(index).Get(inventorytag::StockNumber);
  OpenedFile file(environment_.openFiles);
  Contention contention(contention::kReadInventory, desktop_, environment_, number);
  update_.LetGoWhileAsked(contention);
  return contention.Run([&] { file.Open(kInventoryFile, Access::Read, Deny::None); }) && contention.Run([&] {
    RequireLink(part.offset, "master of " + number);
    ReadRecord(*file, part.offset, part.master);
    part.onFile = part.master;
  });
}

bool Inventory::ReadInventory(FileLink& offset, PartIndex index) {
  const std::optional<Part> part = ReadAt(offset, index);
  if (!part) return false;
  offset = part->offset;
  CurrentInvTag = part->tag;
  CurrentInv = OriginalInv = part->master;
  return true;
}

void Inventory::Write(Part& part, PartIndex index, Core core, Broadcast broadcast) {
  RequireLink(part.offset, "master of " + part.master.Get(inventory::StockNumber));
  if (part.master.Get(inventory::Deleted) != 1) {
    NameUnnamed(part.master, inventory::Description, inventory::StockNumber);
    NameUnnamed(part.tag, inventorytag::Description, inventorytag::StockNumber);
  }
  const bool isListed = index < Count();
  while (!WriteBoth(part, index, isListed ? Listed::Yes : Listed::No)) {
  }
  if (broadcast == Broadcast::Yes && onBroadcast) onBroadcast(part.tag);
  if (isListed && onPartChanged) onPartChanged(part.offset, index);
  const bool hasCore = part.master.Get(inventory::HasACore) == 1;
  if (core == Core::Follows && hasCore && !IsCore(part.master.View(inventory::StockNumber))) {
    UpdateCorePart(part.master);
  }
}

void Inventory::WriteInventory(FileLink offset, PartIndex index, Core core, Broadcast broadcast) {
  Part part{CurrentInvTag, CurrentInv, offset, OriginalInv};
  Write(part, index, core, broadcast);
  CurrentInvTag = part.tag;
  CurrentInv = part.master;
}

bool Inventory::WriteBoth(Part& part, PartIndex index, Listed listed) {
  const std::optional<InventoryTag> before = WriteTag(part, index);
  bool isUndone = false;
  const auto undo = [&] {
    if (!std::exchange(isUndone, true)) UndoTag(before, part.tag, index, listed);
  };
  try {
    OpenedFile file(environment_.openFiles);
    file.TakeOver(OpenInventoryForWrite(undo));
    if (!isUndone) WriteRecord(*file, part.offset, part.master);
  } catch (const std::exception& error) {
    environment_.log.Write(error.what());
    undo();
    throw;
  }
  return !isUndone;
}

std::optional<InventoryTag> Inventory::WriteTag(Part& part, PartIndex index) {
  // Sought before the file is held: the search opens it as well, and would wait for us for ever.
  FileLink location = index < Count() ? KnownLocation(index) : kNoLink;
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenInventoryTagForWrite());
  if (update_.IsOvertaken()) throw Overtaken{};
  // A part that the list has and the file has not goes to the end too, as nothing else can be its place.
  if (location == kNoLink) location = LinkAtEnd(file->Length(), kInventoryTagFile);
  TrimField(part.master, inventory::StockNumber);
  TrimField(part.tag, inventorytag::StockNumber);
  environment_.log.Write("WriteInventory " + part.master.Get(inventory::StockNumber) +
                         " In stock=" + std::to_string(part.master.Get(inventory::QtyInStock)));
  part.tag.Put(inventorytag::IsStocked, part.master.Get(inventory::IsStocked));
  InventoryTag before;
  const bool wasThere = file->ReadAt(static_cast<std::uint64_t>(location), before.Bytes()) == InventoryTag::kLength;
  NoteAhead(update_.Ahead(), part, location, wasThere ? TextOf(before) : "");
  WriteRecord(*file, location, part.tag);
  file.Close();
  KeepInList(part.tag, index, location);
  return wasThere ? std::optional(before) : std::nullopt;
}

// So that tag and master still tell the same.
void Inventory::UndoTag(const std::optional<InventoryTag>& before, const InventoryTag& tag, PartIndex index,
                        Listed listed) {
  try {
    before ? PutTagBack(*before, tag, index) : TakeTagAway(tag, index, listed);
  } catch (const std::exception& error) {
    environment_.log.Write(error.what());
    throw GivenUp("Part " + tag.Get(inventorytag::StockNumber) + " was stored in " + std::string(kInventoryTagFile) +
                  ", but not in " + std::string(kInventoryFile) + ", and " + std::string(kInventoryTagFile) +
                  " could not be put back.\rLook at the part once both files can be written again.");
  }
}

void Inventory::PutTagBack(const InventoryTag& before, const InventoryTag& written, PartIndex index) {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenInventoryTagForWrite());
  if (!IsStillThere(*file, Location(index), written)) return;
  WriteRecord(*file, Location(index), before);
  file.Close();
  KeepInList(before, index, Location(index));
}

// What others have put behind it keeps its place: the tag is that of a deleted part then.
void Inventory::TakeTagAway(const InventoryTag& tag, PartIndex index, Listed listed) {
  const auto location = static_cast<std::uint64_t>(Location(index));
  OpenedFile file(environment_.openFiles);
  file.TakeOver(OpenInventoryTagForWrite());
  if (!IsStillThere(*file, Location(index), tag)) return;
  if (file->Length() == location + InventoryTag::kLength) {
    file->Truncate(location);
  } else {
    InventoryTag deleted = tag;
    deleted.Put(inventorytag::StockNumber, "");
    WriteRecord(*file, Location(index), deleted);
  }
  file.Close();
  if (listed == Listed::Yes) return SetLocation(index, kNoLink);
  RemoveLastTag();
  if (onCountChanged) onCountChanged();
}

void Inventory::KeepInList(const InventoryTag& tag, PartIndex index, FileLink location) {
  const bool isNew = index >= Count();
  while (Count() < index) AppendTag({});
  if (isNew) {
    AppendTag(tag);
  } else {
    ReplaceTag(index, tag);
  }
  SetLocation(index, location);
  if (isNew && onCountChanged) onCountChanged();
}

bool Inventory::NewInventoryPart(std::string_view stockNumber, PartIndex& index) {
  // Its master's place is the end of the file, which another copy may want as well.
  const OneUpdate update(*this);
  return UntilNotOvertaken([&] {
    const NewPlace place = PlaceOfNew(TrimView(stockNumber));
    if (place.taken != kNoLink) return false;
    const Part part = AddPart(stockNumber, place, index);
    CurrentInvTag = part.tag;
    CurrentInv = part.master;
    return true;
  });
}

Inventory::Part Inventory::AddPart(std::string_view stockNumber, const NewPlace& place, PartIndex& index) {
  Part part;
  const std::string_view number = TrimView(stockNumber);
  part.tag.Put(inventorytag::StockNumber, number);
  part.master.Put(inventory::StockNumber, number);
  part.offset = place.master;
  part.tag.Put(inventorytag::Tag, part.offset);
  for (std::size_t level = 0; level < kPriceLevelNames.size(); ++level) {
    part.master.Put(inventory::MarkupPercent[level], system_.SysRec.Get(sysrec::markups[level]));
  }
  part.master.Put(inventory::UsageLink, kNoLink);
  part.master.Put(inventory::ReceivingLink, kNoLink);
  index = Count();
  Write(part, index, Core::Follows, Broadcast::Yes);
  if (!IsCore(part.master.View(inventory::StockNumber)) && onNewPart) onNewPart(part.offset, index);
  return part;
}

// The end of the file, or behind the places there that tags already lead to: a program that ended between the two
// writings leaves such a tag, and one that is there in this moment will fill the place.
Inventory::NewPlace Inventory::PlaceOfNew(std::string_view stockNumber) {
  OpenedFile file(environment_.openFiles);
  if (!update_.Have()) throw GivenUp("Part " + std::string(stockNumber) + " was not added.");
  file.TakeOver(OpenWithoutEnd(kInventoryTagFile, Access::Read, Deny::None));
  update_.NoteReading();
  NewPlace found;
  std::uint64_t place = environment_.files.Length(kInventoryFile);
  std::set<std::uint64_t> taken;
  std::vector<InventoryTag> block(kScanBlock);
  const std::uint64_t count = file->Length() / InventoryTag::kLength;
  for (std::uint64_t first = 0; first < count; first += kScanBlock) {
    const auto tags = std::span(block).first(std::min<std::uint64_t>(count - first, kScanBlock));
    file->ReadAt(first * InventoryTag::kLength, std::as_writable_bytes(tags));
    for (std::size_t i = 0; i < tags.size(); ++i) {
      const InventoryTag& tag = tags[i];
      const auto link = static_cast<std::uint64_t>(std::max(tag.Get(inventorytag::Tag), 0));
      if (link >= place) taken.insert(link);
      if (tag.View(inventorytag::StockNumber) != stockNumber) continue;
      found.taken = LinkAtEnd((first + i) * InventoryTag::kLength, kInventoryTagFile);
      found.tag = tag;
    }
  }
  for (const std::uint64_t each : taken) {
    if (each < place + InventoryRecord::kLength) place = each + InventoryRecord::kLength;
  }
  found.master = LinkAtEnd(place, kInventoryFile);
  return found;
}

}  // namespace lantos
