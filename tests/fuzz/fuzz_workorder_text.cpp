#include <stdexcept>

#include "Target.h"
#include "WorkorderReaders.h"
#include "records/CheckList.h"
#include "records/Customers.h"

// The first byte says which options the shop has, the rest is the text of an active work order. What was read is
// written; that text must read and write again as many lines.
namespace lantos::fuzz {

namespace {

constexpr std::string_view kText = "W0000001.tqa";

std::size_t LinesOf(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  const int options = bytes.empty() ? 0 : bytes[0];
  shop.environment.shopOptions.LaborDateOption = (options & 1) != 0;
  shop.environment.shopOptions.RepairCodeOption = (options & 2) != 0;
  bytes.remove_prefix(std::min<std::size_t>(1, bytes.size()));
  Records records(shop.environment, shop.desktop);
  for (const char* name : {"[Engine]", "Oil", "Belts"}) {
    ChecklistItem item;
    item.Name = name;
    records.checkList.items.push_back(item);
  }
  shop.Put(kText, bytes);
  Workorders workorders(shop.environment, shop.desktop, records);
  workorders.CurrentActiveTag.Put(wotag::FileName, kText);
  Require(workorders.GetCurrWoRec());
  Require(shop.Content(kText) == bytes);
  Workorder& current = workorders.Current;
  SeeWorkorder(current);
  current.WorkorderNumber = 1;
  // Without a name there is no key, and without a key it is the one of a cleared work order.
  if (current.Customer.View(customer::salesperson).empty()) current.Customer.Put(customer::salesperson, "None");
  try {
    workorders.WriteWorkorderFile();
  } catch (const std::overflow_error&) {
    Require(shop.Content(kText) == bytes);  // sums that no field holds: nothing is written
    return;
  }
  const std::size_t written = LinesOf(shop.Content(kText));
  Require(written >= 22);
  Require(workorders.GetCurrWoRec());
  workorders.WriteWorkorderFile();
  Require(LinesOf(shop.Content(kText)) == written);
}

}  // namespace lantos::fuzz
