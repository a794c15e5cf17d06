#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "records/inventory/InventoryLayout.h"
#include "shop/Shop.h"

namespace lantos {

// The tag file read block by block, as long as it was at the beginning.
class TagBlocks {
 public:
  explicit TagBlocks(Shop& shop) : shop_(shop) {}

  void Begin();
  bool AreLeft() const { return next_ < count_; }
  int Count() const { return static_cast<int>(count_); }
  int Done() const { return static_cast<int>(next_); }
  // The tags of the next block; past the end of the file they are blank. A file that can't be read is told of and
  // tried again without end.
  const std::vector<InventoryTag>& Next();

 private:
  Shop& shop_;
  std::filesystem::path tagFile_;
  std::uint64_t count_ = 0;
  std::uint64_t next_ = 0;
  std::vector<InventoryTag> block_;
};

}  // namespace lantos
