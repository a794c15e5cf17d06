#include "Target.h"
#include "WorkorderReaders.h"

// The same bytes as either tag file. What the tags lead to is a sound text and archive.
namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kActiveTagFile, bytes);
  shop.Put(kArchivedTagFile, bytes);
  shop.Put(kArchiveFile, "[Workorder]\r\nWorkorderNumber=004600\r\n\r\n");
  shop.Put("W0004711.tqa", "[Workorder]\r\nWorkorderNumber=004711\r\n\r\n");
  Records records(shop.environment, shop.desktop);
  Workorders workorders(shop.environment, shop.desktop, records);
  std::size_t active = 0, archived = 0;
  ScanActive(shop, workorders, [&](const ActiveWoTag& tag) {
    ++active;
    SeeTag(tag);
    workorders.CurrentActiveTag = tag;
    workorders.GetCurrWoRec();
  });
  Require(active == bytes.size() / ActiveWoTag::kLength);
  ScanArchived(shop, workorders, [&](const ArchivedWoTag& tag) {
    ++archived;
    SeeTag(tag);
  });
  Require(archived == bytes.size() / ArchivedWoTag::kLength);
  ScanArchived(shop, workorders, [&](const ArchivedWoTag& tag) {
    workorders.GetArchWo(tag.Get(wotag::WorkorderNumber), tag.Get(wotag::MasterOffset));
  });
  Require(shop.Content(kActiveTagFile) == bytes);

  workorders.Current.WorkorderNumber = 4712;
  workorders.WriteActiveWoTag();
  Require(workorders.WriteArchivedWoTag());
  Require(shop.Content(kActiveTagFile).size() == (bytes.size() / ActiveWoTag::kLength + 1) * ActiveWoTag::kLength);
  Require(shop.Content(kArchivedTagFile).size() == bytes.size() + ArchivedWoTag::kLength);
}

}  // namespace lantos::fuzz
