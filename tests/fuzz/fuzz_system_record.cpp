#include "Target.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kSystemFile, bytes);
  ReadSystemRecord(shop);
  Require(shop.Content(kSystemFile) == bytes);
  TakeNumbers(shop);
}

}  // namespace lantos::fuzz
