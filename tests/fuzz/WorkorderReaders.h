#pragma once

#include "Readers.h"
#include "records/Record.h"
#include "workorders/Workorders.h"

// What the program does with the files of work orders, whatever their bytes are.
namespace lantos::fuzz {

inline void SeeWorkorder(const Workorder& workorder) {
  See(workorder.Status + workorder.Type + workorder.Pricing + workorder.PaymentComment);
  SeeCustomer(workorder.Customer);
  SeeVehicle(workorder.Vehicle);
  workorder.Parts.ForEach([](const WoPartLine& line) { See(line.PartNumber + line.Description); });
  workorder.Labor.ForEach([](const WoLaborLine& line) { See(line.Date + line.Desc[0] + line.RepairCode); });
  for (const auto* lines : {&workorder.Sublets, &workorder.Waste}) {
    lines->ForEach([](const WoExtraLine& line) { See(line.Vendor + line.Invoice + line.Description); });
  }
  workorder.Credits.ForEach([](const WoCreditLine& line) { See(line.Text[0] + line.Text[3]); });
  for (const WoNote& note : workorder.Notes) See(note[0] + note[7]);
}

template <std::size_t Length>
void SeeTag(const Record<Length>& tag) {
  See(tag.Get(wotag::CustomerName) + tag.Get(wotag::VIN) + tag.Get(wotag::LicenseNumber));
  See(FormatDate(FromFileDate(DateOf(tag))));
  See(std::to_string(TotalsOf(tag).Get(wototals::WorkorderTotal)));
}

// From the last tag to the first, as they are looked for. False when use wants no more.
template <class Tag, class Read>
void ScanTags(std::uint64_t length, Read read, const std::function<void(const Tag&)>& use) {
  constexpr auto kStep = static_cast<std::int64_t>(Tag::kLength);
  for (auto at = static_cast<std::int64_t>(length) - kStep;; at -= kStep) {
    Tag tag;
    if (read(at, tag)) return;
    use(tag);
  }
}

inline void ScanActive(QuietShop& shop, Workorders& workorders, const std::function<void(const ActiveWoTag&)>& use) {
  FileHandle file = workorders.OpenActiveWOForReading();
  ScanTags<ActiveWoTag>(
      shop.environment.openFiles[file].Length(),
      [&](std::int64_t at, ActiveWoTag& tag) { return workorders.ReadActiveWO(file, at, tag); }, use);
  shop.environment.openFiles.CloseFile(file);
}

inline void ScanArchived(QuietShop& shop, Workorders& workorders,
                         const std::function<void(const ArchivedWoTag&)>& use) {
  FileHandle file = workorders.OpenArchWOForReading("");
  ScanTags<ArchivedWoTag>(
      shop.environment.openFiles[file].Length(),
      [&](std::int64_t at, ArchivedWoTag& tag) { return workorders.ReadArchWO(file, at, tag); }, use);
  shop.environment.openFiles.CloseFile(file);
}

}  // namespace lantos::fuzz
