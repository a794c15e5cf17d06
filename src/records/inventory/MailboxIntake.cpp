#include "records/inventory/MailboxIntake.h"

#include <algorithm>
#include <set>
#include <utility>

namespace lantos {

namespace {

constexpr std::int64_t kSlice = 15;             // milliseconds
constexpr std::size_t kRecordsAStep = 32;       // between two looks at the clock
constexpr std::int64_t kLongestStep = 100;      // milliseconds; one that takes longer has waited for somebody
constexpr std::int64_t kUntilOverdue = 60'000;  // milliseconds

}  // namespace

Mailbox::Left MailboxIntake::ProcessInventoryUpdates() {
  if (!mailbox_.IsOpen() && !mailbox_.Open()) return Mailbox::Left::Nothing;
  try {
    const Progress progress = WorkForASlice();
    tags_.Close();
    if (progress == Progress::Going) return Mailbox::Left::More;
    if (progress == Progress::GivenUp) mailbox_.Leave();
    const bool isDone = progress == Progress::Done;
    End();
    return isDone ? mailbox_.Finish() : Mailbox::Left::Nothing;
  } catch (...) {
    tags_.Close();
    mailbox_.Leave();
    End();
    throw;
  }
}

MailboxIntake::Progress MailboxIntake::WorkForASlice() {
  now_ = environment_.clock.Now();
  for (LocalTime start = now_;;) {
    const Progress progress = DoStep();
    if (progress != Progress::Going) return progress;
    const LocalTime before = std::exchange(now_, environment_.clock.Now());
    if (now_.MillisecondsSince(before) > kLongestStep) start = now_;
    const std::int64_t spent = now_.MillisecondsSince(start);
    if (spent >= kSlice || spent < 0) return Progress::Going;
  }
}

MailboxIntake::Progress MailboxIntake::DoStep() {
  if (walk_.IsUnderWay()) {
    walk_.Step();
    return Progress::Going;
  }
  if (next_ < records_.size()) return TakeSome();
  try {
    return ReadNext() ? Progress::Going : Progress::Done;
  } catch (const FileError&) {
    return Progress::GivenUp;  // the log has it
  }
}

bool MailboxIntake::ReadNext() {
  records_ = mailbox_.Next();
  next_ = 0;
  hasWalked_ = false;
  return !records_.empty();
}

MailboxIntake::Progress MailboxIntake::TakeSome() {
  const std::size_t end = std::min(records_.size(), next_ + kRecordsAStep);
  for (; next_ < end; ++next_) {
    const InventoryTag& received = records_[next_];
    const Inventory::PartIndex index = inventory_.FindPart(received.View(inventorytag::StockNumber));
    if (index == Inventory::kNoPart) {
      ++next_;
      // It may cost a walk over the tag file, which is enough for a step.
      return TakeUnknown(received) ? Progress::Going : Progress::GivenUp;
    }
    const Taken taken = TakeKnown(index, received);
    if (taken != Taken::Yes) return taken == Taken::GivenUp ? Progress::GivenUp : Progress::Going;
  }
  return Progress::Going;
}

MailboxIntake::Taken MailboxIntake::TakeKnown(Inventory::PartIndex index, const InventoryTag& received) {
  using Outcome = TagsOnFile::Outcome;
  InventoryTag inFile;
  Outcome outcome = tags_.Read(index, inFile);
  if (outcome == Outcome::PlaceUnknown && !std::exchange(hasWalked_, true) && BeginWalk()) return Taken::PlaceUnknown;
  if (outcome == Outcome::PlaceUnknown) outcome = tags_.SeekAndRead(index, inFile);
  if (outcome == Outcome::GivenUp) return Taken::GivenUp;
  // Word of a part that was deleted meanwhile, which nobody is told of.
  const bool isGone = outcome == Outcome::NotThere && inFile != InventoryTag{} &&
                      inFile.View(inventorytag::StockNumber).empty() &&
                      inFile.Get(inventorytag::Tag) == inventory_.Tag(index).Get(inventorytag::Tag);
  if (isGone) {
    newer_.Follow(index);
    Replace(index, inFile);
    return Taken::Yes;
  }
  // A part that the file hasn't is known by what was told of it alone.
  const bool isThere = outcome == Outcome::Read;
  Replace(index, isThere ? newer_.Choose(index, inventory_.Tag(index), received, inFile, now_) : received);
  return Taken::Yes;
}

// The places of all parts that are named from here on are sought together. False for a single one.
bool MailboxIntake::BeginWalk() {
  std::set<Inventory::PartIndex> unknown;
  for (std::size_t i = next_; i < records_.size(); ++i) {
    const Inventory::PartIndex index = inventory_.FindPart(records_[i].View(inventorytag::StockNumber));
    if (index != Inventory::kNoPart && inventory_.Location(index) == kNoLink) unknown.insert(index);
  }
  if (unknown.size() < 2) return false;
  walk_.Begin({unknown.begin(), unknown.end()});
  return true;
}

bool MailboxIntake::TakeUnknown(const InventoryTag& received) {
  const Moved moved = TakeMoved(received);
  if (moved != Moved::No) return moved == Moved::Taken;
  if (received.View(inventorytag::StockNumber).empty()) return true;  // a deleted part that was never listed
  const Inventory::PartIndex index = inventory_.AppendTag(received);
  partsByMaster_.emplace(received.Get(inventorytag::Tag), index);
  newer_.Follow(index);
  if (onNew) onNew(index);
  return true;
}

// A part of the list that got another number, or none since it was deleted, is known by its master. What is told has no
// number that the list could have; the tag file must bear it out.
MailboxIntake::Moved MailboxIntake::TakeMoved(const InventoryTag& received) {
  const FileLink master = received.Get(inventorytag::Tag);
  const Inventory::PartIndex index = PartOfMaster(master);
  if (index == Inventory::kNoPart) return Moved::No;
  FileLink place = inventory_.Location(index);
  if (place == kNoLink) place = walk_.FindByMaster(master);
  InventoryTag inFile;
  if (place == kNoLink) return Moved::No;
  if (!tags_.ReadOrAsk(place, inventory_.Tag(index).Get(inventorytag::StockNumber), inFile)) return Moved::GivenUp;
  const auto isNamed = [&](const InventoryTag& tag) {
    return inFile.Get(inventorytag::Tag) == master &&
           inFile.View(inventorytag::StockNumber) == tag.View(inventorytag::StockNumber);
  };
  const bool isInPlace = isNamed(inventory_.Tag(index));
  if (isInPlace) inventory_.SetLocation(index, place);
  // Word of what it was called before it was renumbered, or deleted.
  const bool isGone = inventory_.Tag(index).View(inventorytag::StockNumber).empty();
  if (isInPlace && (isGone || newer_.Follows(index))) return Moved::Taken;
  if (!isNamed(received)) return Moved::No;
  inventory_.SetLocation(index, place);
  newer_.Follow(index);
  Replace(index, inFile);
  return Moved::Taken;
}

Inventory::PartIndex MailboxIntake::PartOfMaster(FileLink master) {
  if (partsByMaster_.empty()) {
    partsByMaster_.reserve(static_cast<std::size_t>(inventory_.Count()));
    for (Inventory::PartIndex index = 0; index < inventory_.Count(); ++index) {
      partsByMaster_.emplace(inventory_.Tag(index).Get(inventorytag::Tag), index);
    }
  }
  const auto found = partsByMaster_.find(master);
  return found == partsByMaster_.end() ? Inventory::kNoPart : found->second;
}

void MailboxIntake::Replace(Inventory::PartIndex index, const InventoryTag& tag) {
  const InventoryTag before = inventory_.Tag(index);
  inventory_.ReplaceTag(index, tag);
  if (onChanged) onChanged(index, before);
}

void MailboxIntake::End() {
  records_.clear();
  next_ = 0;
  tags_.LookAgain();
  partsByMaster_.clear();
}

// A deleted part has its master alone to be known by.
void MailboxIntake::Follow(const InventoryTag& written) {
  Inventory::PartIndex index = inventory_.FindPart(written.View(inventorytag::StockNumber));
  if (index == Inventory::kNoPart) {
    partsByMaster_.clear();
    index = PartOfMaster(written.Get(inventorytag::Tag));
    partsByMaster_.clear();
  }
  if (index != Inventory::kNoPart) newer_.Follow(index);
}

void MailboxIntake::ReadOverdue() {
  for (const Inventory::PartIndex index : newer_.AheadOfFile(environment_.clock.Now(), kUntilOverdue)) {
    InventoryTag inFile;
    if (!tags_.ReadQuietly(index, inFile)) break;  // at the next call
    newer_.Follow(index);
    const InventoryTag& listed = inventory_.Tag(index);
    if (inFile.View(inventorytag::StockNumber) == listed.View(inventorytag::StockNumber)) Replace(index, inFile);
  }
  tags_.Close();
}

}  // namespace lantos
