#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "records/CustomerTag.h"

namespace lantos {

// Where a customer's number stands in the tag array, without searching: the outcome is that of looking from the front
// on. Built on the first question after the array was filled. It keeps places only and looks into the array itself.
class CustomerNumbers {
 public:
  using Tags = std::span<const CustomerTag>;

  void Forget() { slots_.clear(); }
  // tags.size() when no tag has the number.
  std::size_t Find(Tags tags, std::int32_t number);
  // The last tag of the array has been added.
  void Appended(Tags tags);

 private:
  void Build(Tags tags);
  std::size_t SlotOf(Tags tags, std::int32_t number) const;

  std::vector<std::uint16_t> slots_;  // a power of two of them; kFree where nothing is kept
};

}  // namespace lantos
