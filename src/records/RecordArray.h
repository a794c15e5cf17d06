#pragma once

#include <memory>
#include <span>
#include <vector>

#include "frame/SharedFile.h"
#include "records/Record.h"

namespace lantos {

// Leaves new elements as the memory is: they are filled from a file at once, and zeroing tens of megabytes first
// would cost as much as reading them.
template <class Element>
struct UnfilledAllocator : std::allocator<Element> {
  template <class Other>
  struct rebind {
    using other = UnfilledAllocator<Other>;
  };
  template <class Other>
  void construct(Other*) noexcept {}
  template <class Other, class... Arguments>
  void construct(Other* place, Arguments&&... arguments) {
    std::construct_at(place, std::forward<Arguments>(arguments)...);
  }
};

// Records held for the run, read straight from their file. What resize() adds is unspecified until it is read.
template <class RecordType>
using RecordArray = std::vector<RecordType, UnfilledAllocator<RecordType>>;

// Records one behind the other from a byte offset on. What lies past the end of the file is zeros. Returns the bytes
// really read.
template <std::size_t Length>
std::size_t ReadRecords(const SharedFile& file, std::uint64_t offset, std::span<Record<Length>> records) {
  static_assert(sizeof(Record<Length>) == Length);
  return file.ReadAt(offset, std::as_writable_bytes(records));
}

}  // namespace lantos
