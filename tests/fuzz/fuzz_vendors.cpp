#include "ListReaders.h"
#include "Target.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kVendorFile, bytes);
  ReadVendors(shop);
  Require(shop.Content(kVendorFile) == bytes);
  ChangeVendors(shop);
  Require(shop.Content(kVendorFile).size() >= VendorRecord::kLength);
}

}  // namespace lantos::fuzz
