#include "Readers.h"
#include "Target.h"
#include "records/CheckList.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kCheckListFile, bytes);
  Records records(shop.environment, shop.desktop);
  records.checkList.LoadChecklistFile();
  for (const ChecklistItem& item : records.checkList.items) {
    Require(!item.Name.empty() && item.Name.find(',') == std::string::npos);
    Require(records.checkList.Find(item.Name) >= 0);
  }
  records.checkList.ClearCheckListValues();
  Require(shop.Content(kCheckListFile) == bytes);
}

}  // namespace lantos::fuzz
