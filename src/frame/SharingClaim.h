#pragma once

#include <cstdint>

#include "frame/SharedFile.h"

namespace lantos {

// What an open claims by its one lock call: bytes far beyond any data, so that no record is ever in the way.
inline constexpr std::uint64_t kReadMark = (std::uint64_t{1} << 62) + 1;     // one byte: "somebody reads"
inline constexpr std::uint64_t kWriterSlots = (std::uint64_t{1} << 62) + 2;  // a row of bytes, one for each writer
inline constexpr std::uint64_t kWriterSlotCount = std::uint64_t{1} << 30;

// One byte for whose turn it is to append.
inline constexpr std::uint64_t kAppendTurn = kWriterSlots + kWriterSlotCount;
// And for whose turn it is to change what it has read.
inline constexpr std::uint64_t kUpdateTurn = kAppendTurn + 1;

struct Claim {
  bool exclusive = false;
  std::uint64_t first = 0;
  std::uint64_t count = 0;  // in bytes
  bool oneSlot = false;     // of the range one byte is taken, at random
};

Claim ClaimOf(Access access, Deny deny);

}  // namespace lantos
