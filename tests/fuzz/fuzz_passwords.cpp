#include "Target.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kPasswordFile, bytes);
  ReadPasswords(shop);
  Require(shop.Content(kPasswordFile) == bytes);
}

}  // namespace lantos::fuzz
