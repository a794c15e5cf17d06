#include "InventoryReaders.h"
#include "Target.h"

namespace lantos::fuzz {

// The first byte tells how many tags there are; the update file follows them.
void Try(std::string_view bytes) {
  if (bytes.empty()) return;
  QuietShop& shop = TheShop();
  const std::size_t tagBytes =
      std::min<std::size_t>(static_cast<unsigned char>(bytes[0]) % 16 * InventoryTag::kLength, bytes.size() - 1);
  const std::string_view tags = bytes.substr(1, tagBytes);
  shop.Put(kInventoryTagFile, tags);
  shop.Put(kUpdateFile, bytes.substr(1 + tagBytes));
  AppendUpdates(shop);
  TakeUpdatesIn(shop);
  Require(shop.Content(kInventoryTagFile) == tags);
}

}  // namespace lantos::fuzz
