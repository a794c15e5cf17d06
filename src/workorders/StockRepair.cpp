#include "workorders/StockRepair.h"

#include "frame/Numbers.h"
#include "records/Contention.h"
#include "records/GivenUp.h"
#include "records/OpenedFile.h"

namespace lantos {

namespace {

constexpr std::size_t kScanBlock = 256;  // records
constexpr std::string_view kStaysHalfDone = "The conversion stays half done.";
constexpr WithoutTurn kWithoutTurn = {"stop here", kStaysHalfDone};

FileIO& LoadedFiles(Environment& environment, const Inventory& inventory) {
  inventory.FinishLoading();
  return environment.files;
}

template <class Use>
void WithUsage(Environment& environment, ui::Desktop& desktop, Access access, Deny deny, Use use) {
  const std::string name(kUsageFile);
  Contention contention(contention::kConversionFile, desktop, environment, name);
  const bool isDone = contention.Run([&] {
    OpenedFile file(environment.openFiles, name, access, deny);
    use(*file);
    file.Close();
  });
  if (!isDone) throw GivenUp(name + " could not be used. " + std::string(kStaysHalfDone));
}

std::int16_t Short(std::int64_t value) {
  if (value != static_cast<std::int16_t>(value))
    throw std::overflow_error("Overflow: a stock of " + std::to_string(value));
  return static_cast<std::int16_t>(value);
}

}  // namespace

StockRepair::StockRepair(Environment& environment, ui::Desktop& desktop, Records& records, std::int32_t workorder)
    : environment_(environment),
      desktop_(desktop),
      inventory_(records.inventory),
      usageHistory_(records.usageHistory),
      workorder_(workorder),
      names_(LoadedFiles(environment, records.inventory)),
      turns_(environment.files.PathOf(kInventoryTagFile), environment.clock) {}

void StockRepair::Complete(const JournaledPart& part) {
  const AskedTurn turn(turns_, desktop_, kInventoryTagFile, kWithoutTurn);
  const std::optional<Found> found = Look(part);
  if (!found || found->chain.hasOurs) return;
  if (found->isKnown) CompleteStock(*found, part.quantity);
  if (found->usage != kNoLink) {
    SetPrevLink(found->usage, inventory_.CurrentInv.Get(inventory::UsageLink));
    inventory_.CurrentInv.Put(inventory::UsageLink, found->usage);
  }
  Store(*found);
}

void StockRepair::CompleteStock(const Found& found, std::int16_t quantity) {
  InventoryTag& tag = inventory_.CurrentInvTag;
  if (!found.isLowered) {
    tag.Put(inventorytag::InStock, Short(std::int64_t{tag.Get(inventorytag::InStock)} - quantity));
  }
  inventory_.CurrentInv.Put(inventory::QtyInStock, tag.Get(inventorytag::InStock));
}

// The link goes first, and the record of the usage last: while it stands the next look finds the part.
void StockRepair::TakeBack(const JournaledPart& part) {
  const AskedTurn turn(turns_, desktop_, kInventoryTagFile, kWithoutTurn);
  const std::optional<Found> found = Look(part);
  if (!found) return;
  InventoryTag& tag = inventory_.CurrentInvTag;
  InventoryRecord& master = inventory_.CurrentInv;
  Unlink(*found);
  if (found->isKnown && found->isLowered) {
    tag.Put(inventorytag::InStock, Short(std::int64_t{tag.Get(inventorytag::InStock)} + part.quantity));
  }
  // A master that nobody has written stays as it was, unlike its tag as it may be.
  const bool isMasterWritten = found->chain.hasOurs || found->chain.others != 0 ||
                               (found->usage == kNoLink && master.Get(inventory::QtyInStock) != part.stockInMaster);
  if (found->isKnown && isMasterWritten) master.Put(inventory::QtyInStock, tag.Get(inventorytag::InStock));
  Store(*found);
  if (found->usage != kNoLink && !usageHistory_.TakeBack(found->usage)) {
    throw GivenUp(std::string(kUsageFile) + " could not be used. " + std::string(kStaysHalfDone));
  }
}

StockRepair::Use StockRepair::UseOf(const JournaledPart& part) const {
  if (part.noted == kNoLink) return Use::GivenUp;
  return FindUsage(part) != kNoLink ? Use::Noted : Use::NotNoted;
}

// Nothing when nothing was done for the part, or it is gone.
std::optional<StockRepair::Found> StockRepair::Look(const JournaledPart& part) {
  Found found;
  found.usage = FindUsage(part);
  if (found.usage == kNoLink && part.noted != kNoLink) return std::nullopt;
  found.index = inventory_.FindPart(part.number);
  if (found.index == Inventory::kNoPart) {
    toBeCounted_.push_back(part.number);
    return std::nullopt;
  }
  if (!inventory_.ReadInventory(found.offset, found.index)) {
    throw GivenUp("The stock of " + part.number + " could not be read. " + std::string(kStaysHalfDone));
  }
  const std::int16_t inTag = inventory_.CurrentInvTag.Get(inventorytag::InStock);
  const std::int16_t inMaster = inventory_.CurrentInv.Get(inventory::QtyInStock);
  found.chain = WalkChain(part, found.usage, inventory_.CurrentInv.Get(inventory::UsageLink));
  if (found.chain.hasOurs) {
    // Tag and master were lowered together. Only the master is, where taking back ended between the two.
    found.isKnown = inTag == inMaster || inTag == inMaster + part.quantity;
    found.isLowered = inTag == inMaster;
  } else {
    const std::int64_t before = inTag + found.chain.others;
    found.isLowered = before == part.stockInTag - part.quantity;
    found.isKnown = found.isLowered || before == part.stockInTag;
  }
  if (!found.isKnown) toBeCounted_.push_back(part.number);
  return found;
}

// Behind half a record that somebody has left all others lie askew: what the journal doesn't know is looked for both as
// the records lie from the beginning and as they lie at the end.
FileLink StockRepair::FindUsage(const JournaledPart& part) const {
  if (part.noted == kNoLink) return kNoLink;
  FileLink found = kNoLink;
  WithUsage(environment_, desktop_, Access::Read, Deny::None, [&](const SharedFile& file) {
    const std::uint64_t askew = file.Length() % UsageRecord::kLength;
    if (part.noted) {
      UsageRecord record;
      ReadRecord(file, *part.noted, record);
      found = IsOurs(record, part.number) ? *part.noted : kNoLink;
    } else {
      found = ScanUsages(file, askew, part.number);
      if (found == kNoLink && askew != 0) found = ScanUsages(file, 0, part.number);
    }
  });
  return found;
}

FileLink StockRepair::ScanUsages(const SharedFile& file, std::uint64_t first, const std::string& number) const {
  std::vector<UsageRecord> block(kScanBlock);
  for (std::uint64_t end = (file.Length() - first) / UsageRecord::kLength; end > 0;) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(end, kScanBlock));
    end -= count;
    file.ReadAt(first + end * UsageRecord::kLength, std::as_writable_bytes(std::span(block).first(count)));
    for (std::size_t i = count; i-- > 0;) {
      if (IsOurs(block[i], number)) return LinkAtEnd(first + (end + i) * UsageRecord::kLength, kUsageFile);
    }
  }
  return kNoLink;
}

bool StockRepair::IsOurs(const UsageRecord& record, const std::string& number) const {
  return record.Get(usage::WorkorderNumber) == workorder_ && record.View(usage::StockNumber) == number;
}

// From the newest to the one that the part had before; a damaged chain that leads back ends with the records there are.
StockRepair::Chain StockRepair::WalkChain(const JournaledPart& part, FileLink usage, FileLink head) const {
  Chain chain;
  FileLink behind = kNoLink;
  WithUsage(environment_, desktop_, Access::Read, Deny::None, [&](const SharedFile& file) {
    chain = {};
    behind = kNoLink;
    std::uint64_t left = file.Length() / UsageRecord::kLength;
    for (FileLink link = head; link >= 0 && link != part.usageLink && left > 0; --left) {
      UsageRecord record;
      ReadRecord(file, link, record);
      if (link == usage) {
        chain.hasOurs = true;
        chain.behindOurs = behind;
      } else {
        chain.others += record.Get(usage::Quantity);
      }
      behind = link;
      link = record.Get(usage::PrevLink);
    }
  });
  return chain;
}

UsageRecord StockRepair::UsageAt(FileLink link) const {
  UsageRecord record;
  WithUsage(environment_, desktop_, Access::Read, Deny::None,
            [&](const SharedFile& file) { ReadRecord(file, link, record); });
  return record;
}

void StockRepair::SetPrevLink(FileLink usage, FileLink previous) {
  UsageRecord record = UsageAt(usage);
  record.Put(usage::PrevLink, previous);
  WithUsage(environment_, desktop_, Access::ReadWrite, Deny::All,
            [&](SharedFile& file) { WriteRecord(file, usage, record); });
}

void StockRepair::Unlink(const Found& found) {
  if (!found.chain.hasOurs) return;
  const FileLink previous = UsageAt(found.usage).Get(usage::PrevLink);
  if (found.chain.behindOurs == kNoLink) {
    inventory_.CurrentInv.Put(inventory::UsageLink, previous);
  } else {
    SetPrevLink(found.chain.behindOurs, previous);
  }
}

void StockRepair::Store(const Found& found) {
  inventory_.WriteInventory(found.offset, found.index, Inventory::Core::Stays, Inventory::Broadcast::Yes);
}

}  // namespace lantos
