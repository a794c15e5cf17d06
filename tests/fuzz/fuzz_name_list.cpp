#include "InventoryReaders.h"
#include "Target.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kDepartmentFile, bytes);
  ReadNames(shop);
  Require(shop.Content(kDepartmentFile) == bytes);
  AddName(shop);
}

}  // namespace lantos::fuzz
