#include "Target.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kMakeModelFile, bytes);
  ReadMakes(shop);
  Require(shop.Content(kMakeModelFile) == bytes);
  ChangeMakes(shop);
}

}  // namespace lantos::fuzz
