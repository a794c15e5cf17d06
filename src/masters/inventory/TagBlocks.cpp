#include "masters/inventory/TagBlocks.h"

#include <algorithm>

#include "frame/SharedFile.h"
#include "records/Contention.h"
#include "records/RecordArray.h"

namespace lantos {

namespace {

constexpr std::size_t kBlockTags = 128;
constexpr std::uint64_t kBlockLength = kBlockTags * InventoryTag::kLength;
static_assert(kBlockLength == 16384);

}  // namespace

void TagBlocks::Begin() {
  block_.resize(kBlockTags);
  count_ = shop_.environment.files.Length(kInventoryTagFile) / kBlockLength + 1;
  next_ = 0;
  tagFile_ = shop_.environment.files.PathOf(kInventoryTagFile);
}

const std::vector<InventoryTag>& TagBlocks::Next() {
  Contention contention(contention::kLoadInventoryTags, shop_.desktop, shop_.environment);
  const bool isRead = contention.Run([this] {
    // Not among the numbered files: their closing is logged, and this is done for every block.
    const SharedFile file(tagFile_, Access::Read, Deny::None);
    ReadRecords(file, next_ * kBlockLength, std::span(block_));
  });
  if (!isRead) std::fill(block_.begin(), block_.end(), InventoryTag());
  ++next_;
  return block_;
}

}  // namespace lantos
