#include "shopmaker/SampleUsage.h"

#include "records/inventory/UsageHistory.h"
#include "workorders/StockMovement.h"

namespace lantos::sample {

UsageWriter::UsageWriter(ShopDirectory& directory, const SampleShop& shop)
    : file_(directory, kUsageFile), newest_(shop.parts.size(), kNoLink) {
  for (std::size_t i = 0; i < shop.partTags.size(); ++i) {
    const std::string_view number = shop.partTags[i].View(inventorytag::StockNumber);
    if (!number.empty()) index_.emplace(number, i);
  }
}

void UsageWriter::Add(const Workorder& workorder, WoStatus status) {
  if (status == WoStatus::Void) return;
  const UsageHistory::Use use = StockMovement::UseIn(workorder);
  workorder.Parts.ForEach([&](const WoPartLine& line) {
    const auto found = index_.find(line.PartNumber);
    if (found == index_.end()) return;
    FileLink& newest = newest_[found->second];
    // Cost and price are handed over crosswise, as with every part that leaves the stock.
    const UsageRecord record =
        UsageHistory::RecordOf(use, line.PartNumber, line.Cost, line.Price, line.Quantity, newest);
    newest = file_.Next();
    file_.Add(record);
  });
}

std::vector<FileLink> UsageWriter::Close() {
  file_.Close();
  return std::move(newest_);
}

}  // namespace lantos::sample
