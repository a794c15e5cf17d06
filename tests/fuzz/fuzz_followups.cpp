#include "ListReaders.h"
#include "Target.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kFollowupFile, bytes);
  ReadFollowups(shop);
  Require(shop.Content(kFollowupFile) == bytes);
}

}  // namespace lantos::fuzz
