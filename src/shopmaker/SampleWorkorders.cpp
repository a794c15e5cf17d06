#include "records/CheckList.h"
#include "records/modEmployees.h"
#include "shopmaker/GrowingFile.h"
#include "shopmaker/SamplePastOrders.h"
#include "shopmaker/SampleSteps.h"
#include "shopmaker/SampleUsage.h"
#include "workorders/TagOfWorkorder.h"
#include "workorders/WorkorderText.h"

// The files of the visits that there were.
namespace lantos::sample {

std::vector<FileLink> WriteWorkorders(ShopDirectory& directory, const SampleShop& shop, Clock& clock,
                                      const TellMaking& tell) {
  UserSettings settings{std::filesystem::path()};  // none are looked at
  Environment environment(clock, settings);
  CheckListTable checkList(environment);
  modEmployees employees(environment);
  employees.SetEmployees(shop.employees);
  GrowingFile activeTags(directory, kActiveTagFile), archivedTags(directory, kArchivedTagFile),
      archive(directory, kArchiveFile);
  UsageWriter usage(directory, shop);
  PastOrders past(shop, environment.shopOptions, employees);
  Workorder workorder;
  std::uint64_t written = 0;
  for (const SampleWorkorder& order : shop.workorders) {
    tell("work orders", written++, shop.workorders.size());
    past.Make(order, workorder);
    const std::string text = WorkorderText(workorder, {environment.shopOptions, checkList, order.opened});
    // Behind the text, whose sums are those of the lines: so the shop's work orders agree with their tags once they
    // were stored again.
    ActiveWoTag tag;
    PutIntoTag(workorder, tag);
    ArchivedWoTag archived;
    PutIntoTag(tag, order.archived ? archive.Next() : kNoLink, archived);
    archivedTags.Add(archived);
    if (order.archived) {
      archive.Add(text);
    } else {
      activeTags.Add(tag);
      directory.AddFile(tag.View(wotag::FileName), text + '\0');
    }
    usage.Add(workorder, order.status);
  }
  for (GrowingFile* file : {&activeTags, &archivedTags, &archive}) file->Close();
  return usage.Close();
}

}  // namespace lantos::sample
