#include "ListReaders.h"
#include "Target.h"

// Canned labor, its kits and canned notes. What was read and written once is written the same again.
namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  for (const std::string_view name : {kCannedLaborFile, kLaborKitFile, kCannedNoteFile}) shop.Put(name, bytes);
  ReadCanned(shop);
  Require(shop.Content(kCannedLaborFile) == bytes);
  SaveCannedNotes(shop.environment, LoadCannedNotes(shop.environment));
  const std::string notes = shop.Content(kCannedNoteFile);
  SaveCannedNotes(shop.environment, LoadCannedNotes(shop.environment));
  Require(shop.Content(kCannedNoteFile) == notes);
  Refusable([&] {
    SaveCannedLabor(shop.environment, LoadCannedLabor(shop.environment));
    const std::string labor = shop.Content(kCannedLaborFile);
    SaveCannedLabor(shop.environment, LoadCannedLabor(shop.environment));
    Require(shop.Content(kCannedLaborFile) == labor);
  });
}

}  // namespace lantos::fuzz
