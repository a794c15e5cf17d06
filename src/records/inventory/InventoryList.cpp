#include "records/inventory/InventoryList.h"

#include <algorithm>
#include <cstring>

namespace lantos {

namespace {

constexpr std::size_t kLeastSlots = 64;
constexpr std::size_t kLeastRoom = 1024;  // tags
constexpr std::size_t kKeyWidth = inventorytag::StockNumber.width;
static_assert(inventorytag::StockNumber.offset == 0 && kKeyWidth == 21);
// No link leads to a tag further behind.
constexpr std::uint64_t kMostTags = (std::uint64_t{1} << 31) / InventoryTag::kLength;

std::uint64_t WordAt(const void* bytes, std::size_t offset) {
  std::uint64_t word;
  std::memcpy(&word, static_cast<const std::byte*>(bytes) + offset, sizeof word);
  return word;
}

std::array<std::uint64_t, 3> WordsOf(const void* field) {
  return {WordAt(field, 0), WordAt(field, 8), WordAt(field, kKeyWidth - 8)};
}

std::uint32_t HashOf(const std::array<std::uint64_t, 3>& key) {
  std::uint64_t hash = 0x9E3779B97F4A7C15u;
  for (const std::uint64_t word : key) {
    hash = (hash ^ word) * 0xD6E8FEB86659FD93u;
    hash ^= hash >> 32;
  }
  return static_cast<std::uint32_t>(hash);
}

// At most half of the slots is ever used, so that a search ends soon.
std::size_t SlotsFor(std::size_t tags) {
  std::size_t slots = kLeastSlots;
  while (slots < 2 * tags) slots *= 2;
  return slots;
}

// The stock number is left as its trimmed text and NULs, whatever stood behind it.
void TrimTexts(InventoryTag& tag) {
  const std::string_view number = tag.View(inventorytag::StockNumber);
  std::array<std::byte, kKeyWidth> field{};
  std::transform(number.begin(), number.end(), field.begin(), [](char c) { return static_cast<std::byte>(c); });
  std::memcpy(tag.Bytes().data(), field.data(), field.size());
  tag.Put(inventorytag::Description, tag.View(inventorytag::Description));
}

}  // namespace

void InventoryList::Clear(std::uint64_t expected) {
  tags_.clear();
  locations_.clear();
  const auto room = static_cast<std::size_t>(std::min(expected, kMostTags));
  tags_.reserve(room);
  locations_.reserve(room);
  Reindex();
}

// By an eighth, not twofold: the memory for parts that nobody will add is spared.
void InventoryList::MakeRoom() {
  const std::size_t room = tags_.size() + std::max(kLeastRoom, tags_.size() / 8);
  tags_.reserve(room);
  locations_.reserve(room);
}

InventoryList::PartIndex InventoryList::AppendTag(const InventoryTag& tag) {
  if (tags_.size() == tags_.capacity()) {
    const InventoryTag copy = tag;  // may be a tag of this very list, which moves
    MakeRoom();
    return AppendTag(copy);
  }
  tags_.push_back(tag);
  locations_.push_back(kNoLink);
  TrimTexts(tags_.back());
  return Count() - 1;
}

void InventoryList::ReplaceTag(PartIndex index, const InventoryTag& tag) {
  InventoryTag& place = tags_.at(static_cast<std::size_t>(index));
  InventoryTag trimmed = tag;
  TrimTexts(trimmed);
  const bool isMoved = KeyOf(trimmed) != KeyOf(place) && index < indexed_;
  if (isMoved) RemoveFromIndex(index);
  place = trimmed;
  if (isMoved && hasDoubles_) Reindex();
  if (isMoved && index < indexed_) AddToIndex(index);
}

void InventoryList::RemoveLastTag() {
  const PartIndex last = Count() - 1;
  if (last < indexed_) {
    RemoveFromIndex(last);
    indexed_ = last;
  }
  tags_.pop_back();
  locations_.pop_back();
}

InventoryList::NumberKey InventoryList::KeyOf(const InventoryTag& tag) { return WordsOf(tag.Bytes().data()); }

// The slot that holds the number, or the free one where it belongs.
std::size_t InventoryList::SlotOf(const NumberKey& key, std::uint32_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
    const Slot& slot = slots_[place];
    if (slot.index == kNoPart) return place;
    if (slot.hash == hash && KeyOf(tags_[static_cast<std::size_t>(slot.index)]) == key) return place;
  }
}

// Of several parts of one number the first is found.
void InventoryList::AddToIndex(PartIndex index) const {
  const NumberKey key = KeyOf(tags_[static_cast<std::size_t>(index)]);
  if (key == NumberKey{}) return;
  const std::uint32_t hash = HashOf(key);
  Slot& slot = slots_[SlotOf(key, hash)];
  if (slot.index != kNoPart) hasDoubles_ = true;
  if (slot.index == kNoPart || index < slot.index) slot = {index, hash};
}

// What stands behind it and could not get its place moves up, so that no search ends at the gap.
void InventoryList::RemoveFromIndex(PartIndex index) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t gap = HashOf(KeyOf(tags_[static_cast<std::size_t>(index)])) & mask;
  while (slots_[gap].index != index) {
    if (slots_[gap].index == kNoPart) return;  // it had no number, or a part ahead of it has the same
    gap = (gap + 1) & mask;
  }
  for (std::size_t next = (gap + 1) & mask; slots_[next].index != kNoPart; next = (next + 1) & mask) {
    const std::size_t wanted = slots_[next].hash & mask;
    if (((next - wanted) & mask) < ((next - gap) & mask)) continue;
    slots_[gap] = slots_[next];
    gap = next;
  }
  slots_[gap] = Slot{};
}

// Parts come by the thousand while the list is loaded: they join the index at the first look-up behind them.
void InventoryList::CompleteIndex() const {
  if (slots_.size() < SlotsFor(tags_.size())) {
    slots_.assign(SlotsFor(tags_.capacity()), Slot{});
    indexed_ = 0;
    hasDoubles_ = false;
  }
  for (; indexed_ < Count(); ++indexed_) AddToIndex(indexed_);
}

void InventoryList::Reindex() {
  slots_.clear();
  indexed_ = 0;
  hasDoubles_ = false;
}

InventoryList::PartIndex InventoryList::FindPart(std::string_view stockNumber) const {
  const std::string_view number = TrimView(stockNumber);
  if (number.empty() || number.size() > kKeyWidth) return kNoPart;
  CompleteIndex();
  std::array<char, kKeyWidth> field{};
  std::copy(number.begin(), number.end(), field.begin());
  const NumberKey key = WordsOf(field.data());
  return slots_[SlotOf(key, HashOf(key))].index;
}

InventoryList::Pricing InventoryList::PartPricing(std::string_view stockNumber) const {
  const PartIndex index = FindPart(stockNumber);
  if (index == kNoPart) return {};
  const InventoryTag& tag = Tag(index);
  return {index, tag.Get(inventorytag::Pricing[0]), tag.Get(inventorytag::Pricing[pricingLevel]),
          tag.Get(inventorytag::InStock)};
}

std::string InventoryList::PartDescription(std::string_view stockNumber) const {
  const PartIndex index = FindPart(stockNumber);
  return index == kNoPart ? std::string() : Tag(index).Get(inventorytag::Description);
}

InventoryList::Prices InventoryList::PartPrices(std::string_view stockNumber) const {
  Prices prices;
  prices.index = FindPart(stockNumber);
  if (prices.index == kNoPart) return prices;
  for (std::size_t level = 0; level < prices.byLevel.size(); ++level) {
    prices.byLevel[level] = Tag(prices.index).Get(inventorytag::Pricing[level]);
  }
  return prices;
}

std::int16_t InventoryList::PartInStock(std::string_view stockNumber) const {
  const PartIndex index = FindPart(stockNumber);
  return index == kNoPart ? std::int16_t{0} : Tag(index).Get(inventorytag::InStock);
}

}  // namespace lantos
