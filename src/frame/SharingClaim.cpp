#include "frame/SharingClaim.h"

namespace lantos {

namespace {

constexpr Claim kPlainRead = {false, kReadMark, 1, false};
// Shared over all slots: meets every writer, no other reader.
constexpr Claim kReadAgainstWriters = {false, kWriterSlots, kWriterSlotCount, false};
// Writers that allow each other take different slots and so never meet.
constexpr Claim kPlainWrite = {true, kWriterSlots, kWriterSlotCount, true};
constexpr Claim kWriteAgainstWriters = {true, kWriterSlots, kWriterSlotCount, false};
constexpr Claim kAlone = {true, kReadMark, 1 + kWriterSlotCount, false};
static_assert(kReadMark + 1 == kWriterSlots);

}  // namespace

Claim ClaimOf(Access access, Deny deny) {
  if (deny == Deny::All) return kAlone;
  if (access == Access::Read) return deny == Deny::None ? kPlainRead : kReadAgainstWriters;
  return deny == Deny::None ? kPlainWrite : kWriteAgainstWriters;
}

}  // namespace lantos
