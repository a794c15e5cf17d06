#include <stdexcept>

#include "Target.h"
#include "WorkorderReaders.h"
#include "records/CheckList.h"

// The archive, looked into at the places where its headings stand and beside them.
namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kArchiveFile, bytes);
  Records records(shop.environment, shop.desktop);
  Workorders workorders(shop.environment, shop.desktop, records);
  Require(!workorders.GetArchWo(4600, -1));
  Require(!workorders.GetArchWo(0, 0));
  int tries = 0;
  for (std::size_t at = bytes.find(kWorkorderHeading); at != std::string_view::npos && tries < 8;
       at = bytes.find(kWorkorderHeading, at + 1), ++tries) {
    const auto offset = static_cast<FileLink>(at);
    for (const std::int32_t number : {4600, 4601, 1234567, -1}) {
      if (!workorders.GetArchWo(number, offset)) continue;
      Require(workorders.Current.WorkorderNumber == number);
      SeeWorkorder(workorders.Current);
      try {
        WorkorderLines(workorders.Current, {shop.environment.shopOptions, records.checkList, shop.environment.Today()});
      } catch (const std::overflow_error&) {
        continue;  // sums that no field holds
      }
    }
    workorders.GetArchWo(4600, offset + 1);
  }
  workorders.GetArchWo(4600, static_cast<FileLink>(bytes.size()));
  Require(shop.Content(kArchiveFile) == bytes);
}

}  // namespace lantos::fuzz
