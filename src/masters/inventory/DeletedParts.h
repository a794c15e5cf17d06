#pragma once

#include <memory>

#include "frame/SharedFile.h"
#include "records/inventory/InventoryLayout.h"
#include "shop/Shop.h"

namespace lantos {

// Tells the tags of deleted parts from those of parts that never had a number: both are without one, and only the
// master knows. The file of the masters is opened at the first tag without a number, and stays so while this lives. One
// that somebody holds is waited for once, for two seconds.
class DeletedParts {
 public:
  explicit DeletedParts(Shop& shop) : shop_(shop) {}
  // False where there is no such master, and where it can't be read.
  bool Has(const InventoryTag& tag);

 private:
  void Open();

  Shop& shop_;
  bool tried_ = false;
  std::unique_ptr<SharedFile> masters_;
};

}  // namespace lantos
