#include "Target.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kEmployeeFile, bytes);
  ReadEmployees(shop);
  Require(shop.Content(kEmployeeFile) == bytes);
  ChangeEmployees(shop);
}

}  // namespace lantos::fuzz
