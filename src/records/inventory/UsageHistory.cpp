#include "records/inventory/UsageHistory.h"

#include "records/Contention.h"
#include "records/OpenedFile.h"

namespace lantos {

FileLink UsageHistory::UpdateUsage(const Use& use, Cents price, Cents cost, std::int16_t quantity) {
  const std::string name(kUsageFile);
  const UsageRecord record = RecordOf(use, inventory_.CurrentInvTag.View(inventorytag::StockNumber), price, cost,
                                      quantity, inventory_.CurrentInv.Get(inventory::UsageLink));
  FileLink offset = kNoLink;
  Contention contention(contention::kUpdateUsage, desktop_, environment_, name);
  const bool isNoted = contention.Run([&] {
    OpenedFile file(environment_.openFiles, name, Access::ReadWrite, Deny::All);
    environment_.log.Write("UpdateUsage: Opened " + name + " (update,fp=" + std::to_string(file.Handle()) + ")");
    // The end as it is while nobody else has the file: another one may have grown it during the wait.
    offset = LinkAtEnd(file->Length(), kUsageFile);
    WriteRecord(*file, offset, record);
    file.Close();
  });
  if (!isNoted) return kNoLink;
  environment_.files.FlushFile(name);
  return offset;
}

bool UsageHistory::TakeBack(FileLink link) {
  const std::string name(kUsageFile);
  Contention contention(contention::kConversionFile, desktop_, environment_, name);
  const bool isTaken = contention.Run([&] {
    OpenedFile file(environment_.openFiles, name, Access::ReadWrite, Deny::All);
    const auto at = static_cast<std::uint64_t>(link);
    if (file->Length() == at + UsageRecord::kLength) {
      file->Truncate(at);
    } else {
      UsageRecord blank;
      blank.Put(usage::PrevLink, kNoLink);
      WriteRecord(*file, link, blank);
    }
    file.Close();
  });
  if (isTaken) environment_.files.FlushFile(name);
  return isTaken;
}

UsageRecord UsageHistory::RecordOf(const Use& use, std::string_view stockNumber, Cents price, Cents cost,
                                   std::int16_t quantity, FileLink prevLink) {
  UsageRecord record;
  record.Put(usage::StockNumber, stockNumber);
  record.Put(usage::WorkorderNumber, use.workorderNumber);
  record.Put(usage::Date, use.date);
  record.Put(usage::CustomerKey, Trim(use.customerLastname) + "," + Trim(use.customerFirstname));
  record.Put(usage::Quantity, quantity);
  record.Put(usage::Price, price);
  record.Put(usage::Cost, cost);
  record.Put(usage::PrevLink, prevLink);
  return record;
}

}  // namespace lantos
