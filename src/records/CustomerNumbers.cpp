#include "records/CustomerNumbers.h"

#include <algorithm>
#include <bit>

namespace lantos {

namespace {

constexpr std::uint16_t kFree = 65535;
constexpr std::size_t kLeastSlots = 64;
static_assert(kCustomerLimit < kFree);

// Numbers run on by one, so any odd factor with mixed bits spreads them; the upper half of the product is the best.
std::size_t Spread(std::int32_t number) {
  const std::uint64_t product = static_cast<std::uint32_t>(number) * 0x9E3779B97F4A7C15ULL;
  return static_cast<std::size_t>(product >> 32U);
}

}  // namespace

std::size_t CustomerNumbers::Find(Tags tags, std::int32_t number) {
  if (slots_.empty()) Build(tags);
  const std::uint16_t place = slots_[SlotOf(tags, number)];
  return place == kFree ? tags.size() : place;
}

void CustomerNumbers::Appended(Tags tags) {
  if (slots_.empty()) return;
  if (tags.size() * 2 > slots_.size()) return Build(tags);
  std::uint16_t& slot = slots_[SlotOf(tags, tags.back().Get(customertag::Number))];
  if (slot == kFree) slot = static_cast<std::uint16_t>(tags.size() - 1);
}

void CustomerNumbers::Build(Tags tags) {
  slots_.assign(std::bit_ceil(std::max(tags.size() * 2, kLeastSlots)), kFree);
  for (std::size_t i = 0; i < tags.size(); ++i) {
    std::uint16_t& slot = slots_[SlotOf(tags, tags[i].Get(customertag::Number))];
    // Of two tags with one number the first is found.
    if (slot == kFree) slot = static_cast<std::uint16_t>(i);
  }
}

// The slot that keeps the number, or the free one where it belongs. At most half of the slots are taken.
std::size_t CustomerNumbers::SlotOf(Tags tags, std::int32_t number) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = Spread(number) & mask;
  while (slots_[slot] != kFree && tags[slots_[slot]].Get(customertag::Number) != number) slot = (slot + 1) & mask;
  return slot;
}

}  // namespace lantos
