#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Types.h"
#include "records/PriceLevels.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

// The list of all tags of parts that each run holds, and its look-ups. A place in the list is an index; kNoPart is
// none. The list grows and never shrinks; a part deleted meanwhile has a blank stock number.
class InventoryList {
 public:
  using PartIndex = std::int32_t;
  static constexpr PartIndex kNoPart = -1;

  InventoryList() = default;
  InventoryList(const InventoryList&) = delete;

  // Empties the list and makes room for so many tags.
  void Clear(std::uint64_t expected);
  PartIndex Count() const { return static_cast<PartIndex>(tags_.size()); }
  const InventoryTag& Tag(PartIndex index) const { return tags_.at(static_cast<std::size_t>(index)); }
  // At the end of the list, its place in the file unknown. The stock number and the description are trimmed.
  PartIndex AppendTag(const InventoryTag& tag);
  // The stock number and the description are trimmed. Another stock number takes time with the length of the list only
  // where two parts bear the same one.
  void ReplaceTag(PartIndex index, const InventoryTag& tag);
  // The list has one.
  void RemoveLastTag();
  // Of the tag in the tag file; kNoLink while it isn't known.
  FileLink Location(PartIndex index) const { return locations_.at(static_cast<std::size_t>(index)); }
  void SetLocation(PartIndex index, FileLink location) { locations_.at(static_cast<std::size_t>(index)) = location; }

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
  void RemoveFromIndex(PartIndex index);
  void CompleteIndex() const;
  std::size_t SlotOf(const NumberKey& key, std::uint32_t hash) const;

  std::vector<InventoryTag> tags_;
  std::vector<FileLink> locations_;
  // Open addressing: the slots stand where the hashes of their numbers lead. At most half of them are used.
  mutable std::vector<Slot> slots_;
  mutable PartIndex indexed_ = 0;    // leading parts that stand in it
  mutable bool hasDoubles_ = false;  // among them: a number that two parts bear
};

}  // namespace lantos
