#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "records/PriceLevels.h"
#include "records/inventory/InventoryLayout.h"
#include "records/modSystem.h"
#include "ui/Desktop.h"

namespace lantos {

struct ContentionRule;

// The parts: the list of all tags that each run holds, and the two files behind it. A place in the list is an index;
// kNoPart is none. The list grows and never shrinks; a part deleted meanwhile has a blank stock number.
class Inventory {
 public:
  using PartIndex = std::int32_t;
  static constexpr PartIndex kNoPart = -1;

  Inventory(Environment& environment, ui::Desktop& desktop, modSystem& system)
      : environment_(environment), desktop_(desktop), system_(system) {}
  Inventory(const Inventory&) = delete;

  // The working records: the part read last, and its master as it was read.
  InventoryTag CurrentInvTag;
  InventoryRecord CurrentInv;
  InventoryRecord OriginalInv;

  // The list. Room for as many tags as the file has is made at the start of the run; it is empty then.
  void SizeArrays();
  PartIndex Count() const { return static_cast<PartIndex>(tags_.size()); }
  const InventoryTag& Tag(PartIndex index) const { return tags_.at(static_cast<std::size_t>(index)); }
  // At the end of the list, its place in the file unknown. The stock number and the description are trimmed.
  PartIndex AppendTag(const InventoryTag& tag);
  // The stock number and the description are trimmed. Another stock number takes time with the length of the list.
  void ReplaceTag(PartIndex index, const InventoryTag& tag);
  FileLink Location(PartIndex index) const { return locations_.at(static_cast<std::size_t>(index)); }

  // The look-ups, in constant time. The first part of that trimmed number, letter for letter; kNoPart when there is
  // none, and for a blank number, though deleted parts have one.
  PartIndex FindPart(std::string_view stockNumber) const;
  struct Pricing {
    PartIndex index = kNoPart;
    Cents cost = 0;
    Cents atLevel = 0;  // at pricingLevel
    std::int16_t onHand = 0;
  };
  Pricing PartPricing(std::string_view stockNumber) const;          // zeros for an unknown part
  std::string PartDescription(std::string_view stockNumber) const;  // empty for an unknown part
  struct Prices {
    PartIndex index = kNoPart;
    std::array<Cents, 4> byLevel{};
  };
  Prices PartPrices(std::string_view stockNumber) const;
  std::int16_t PartInStock(std::string_view stockNumber) const;

  // A place in kPriceLevelNames. Any other number, as a damaged customer record may have it, is Retail.
  class PriceLevel {
   public:
    PriceLevel(int level) : level_(level < 0 || level > kRetail ? kRetail : level) {}
    operator int() const { return level_; }

   private:
    int level_;
  };
  // In force, of the customer on show.
  PriceLevel pricingLevel = kRetail;

  // The two files opened for a write, with no sharing. They are waited for without end.
  FileHandle OpenInventoryTagForWrite();
  FileHandle OpenInventoryForWrite();

  // Byte offset of the part's tag, sought from the end of the file; kNoLink when it isn't there. The file is waited
  // for without end.
  FileLink FindTagLocation(PartIndex index);
  // Fills CurrentInvTag, CurrentInv and OriginalInv. An offset of kNoLink is taken from the tag, and set. A file that
  // can't be read is the operator's to retry; false when they gave up.
  bool ReadInventory(FileLink& offset, PartIndex index);
  // The tag alone, straight from the file. False when it could not be read.
  bool ReadInventoryTag(PartIndex index, InventoryTag& tag);
  // Stores both working records: the tag at its place (at the end for an index past the list, which then grows up to
  // it), the master at the offset. A blank description becomes the stock number, unless the part is deleted. With
  // keepCore the part's core follows it. The files are waited for without end.
  void WriteInventory(FileLink offset, PartIndex index, bool keepCore, bool broadcast);
  // A new part of that number, read into the working records and written. The list is told, unless it is a core.
  void NewInventoryPart(std::string_view stockNumber, PartIndex& index);
  // Keeps the alternates of two parts symmetrical after the part's alternate changed from old to new. The working
  // records come back as they were.
  void CrossReferenceAlternate(std::string_view part, std::string_view oldAlternate, std::string_view newAlternate);

  // Told by the routines above, when set: a part joined the list, the count changed, a change is to be told to the
  // other copies (of CurrentInvTag).
  std::function<void(FileLink offset, PartIndex index)> onNewPart;
  std::function<void()> onCountChanged;
  std::function<void()> onBroadcast;

 private:
  // A stock number as three overlapping words of its field: what is trimmed and NUL-filled compares so.
  using NumberKey = std::array<std::uint64_t, 3>;
  static NumberKey KeyOf(const InventoryTag& tag);
  // A place in the list, kNoPart where free, and what tells most other numbers apart without a look at the tag.
  struct Slot {
    PartIndex index = kNoPart;
    std::uint32_t hash = 0;
  };
  void MakeRoom();
  void Reindex();
  void AddToIndex(PartIndex index) const;
  void CompleteIndex() const;
  std::size_t SlotOf(const NumberKey& key, std::uint32_t hash) const;

  // Puts the working records back at its end.
  class WorkingRecordsKept {
   public:
    explicit WorkingRecordsKept(Inventory& inventory)
        : inventory_(inventory),
          tag_(inventory.CurrentInvTag),
          master_(inventory.CurrentInv),
          original_(inventory.OriginalInv) {}
    ~WorkingRecordsKept() {
      inventory_.CurrentInvTag = tag_;
      inventory_.CurrentInv = master_;
      inventory_.OriginalInv = original_;
    }
    WorkingRecordsKept(const WorkingRecordsKept&) = delete;
    const InventoryRecord& Master() const { return master_; }

   private:
    Inventory& inventory_;
    const InventoryTag tag_;
    const InventoryRecord master_;
    const InventoryRecord original_;
  };
  FileHandle OpenWithoutEnd(std::string_view name, Access access, Deny deny);
  FileLink KnownLocation(PartIndex index);
  bool ReadTag(const ContentionRule& rule, PartIndex index, InventoryTag& tag);
  void WriteTag(PartIndex index);
  void WriteMaster(FileLink offset);
  void KeepInList(PartIndex index, FileLink location);
  void UpdateCorePart();
  void FillCore(const InventoryRecord& part);
  static bool IsCore(std::string_view stockNumber);
  void ForgetAlternate(std::string_view part, PartIndex from);
  void AddAlternate(std::string_view part, PartIndex to, std::string_view named);

  Environment& environment_;
  ui::Desktop& desktop_;
  modSystem& system_;
  std::vector<InventoryTag> tags_;
  std::vector<FileLink> locations_;
  // Open addressing: the slots stand where the hashes of their numbers lead. At most half of them are used.
  mutable std::vector<Slot> slots_;
  mutable PartIndex indexed_ = 0;  // leading parts that stand in it
};

}  // namespace lantos
