#include "InventoryReaders.h"
#include "Target.h"
#include "records/inventory/InventoryLayout.h"
#include "records/modSystem.h"

namespace lantos::fuzz {

// The first byte tells how many tags there are; masters follow them.
void Try(std::string_view bytes) {
  if (bytes.empty()) return;
  QuietShop& shop = TheShop();
  const std::size_t tagBytes =
      std::min<std::size_t>(static_cast<unsigned char>(bytes[0]) % 16 * InventoryTag::kLength, bytes.size() - 1);
  const std::string_view tags = bytes.substr(1, tagBytes);
  const std::string_view masters = bytes.substr(1 + tagBytes);
  shop.Put(kInventoryTagFile, tags);
  shop.Put(kInventoryFile, masters);
  shop.Put(kSystemFile, std::string(SystemRecord::kLength, '\0'));
  ReadInventory(shop);
  Require(shop.Content(kInventoryTagFile) == tags && shop.Content(kInventoryFile) == masters);
  ChangeInventory(shop);
}

}  // namespace lantos::fuzz
