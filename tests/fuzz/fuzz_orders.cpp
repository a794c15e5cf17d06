#include "ListReaders.h"
#include "Target.h"
#include "records/PurchaseOrders.h"

// The tags up to the first three records, and the detail text behind them.
namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  const std::string_view tags = bytes.substr(0, 3 * PoTag::kLength);
  shop.Put(kOpenOrdersFile, tags);
  shop.Put("P0003101.TQP", bytes.substr(tags.size()));
  ReadOrders(shop);
  Require(shop.Content(kOpenOrdersFile) == tags);
  See(ParseSubletLine(bytes).description);
}

}  // namespace lantos::fuzz
