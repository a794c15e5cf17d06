#pragma once

#include <filesystem>
#include <memory>

#include "frame/SharedFile.h"
#include "records/inventory/InventoryLayout.h"
#include "shop/Shop.h"

namespace lantos {

// Tells the tags of deleted parts from those of parts that never had a number: both are without one, and only the
// master knows. The file of the masters is opened at the first tag without a number, and stays so while this lives.
class DeletedParts {
 public:
  explicit DeletedParts(Shop& shop) : shop_(shop) {}
  // Waits without end for a file that somebody holds; false where there is no such master.
  bool Has(const InventoryTag& tag);

 private:
  Shop& shop_;
  std::unique_ptr<SharedFile> masters_;
};

}  // namespace lantos
