#include "InventoryReaders.h"
#include "Target.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kKitFile, bytes);
  ReadKits(shop);
  Require(shop.Content(kKitFile) == bytes);
  ChangeKits(shop);
  SaveKitsAgain(shop);
  // The text of a line and of a location alone, too.
  See(KitLine(ParseKitLine(bytes)));
  See(FormatHundredths(ParseKitPrices(bytes).sale));
}

}  // namespace lantos::fuzz
