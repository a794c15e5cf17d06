#include "ListReaders.h"
#include "Target.h"

// Canned labor, its kits and canned notes. What was read and written once is written the same again.
namespace lantos::fuzz {

// What the screen of the list stores when nothing in it was changed; its bytes behind that.
template <class EntriesIn>
std::string StoredAgain(QuietShop& shop, std::string_view name, EntriesIn entriesIn) {
  EditedLines file(shop.environment, name);
  file.Store(shop.desktop, "", LinesOf(entriesIn(file.Read())));
  return shop.Content(name);
}

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  for (const std::string_view name : {kCannedLaborFile, kLaborKitFile, kCannedNoteFile}) shop.Put(name, bytes);
  ReadCanned(shop);
  Require(shop.Content(kCannedLaborFile) == bytes);
  const std::string notes = StoredAgain(shop, kCannedNoteFile, CannedNotesIn);
  Require(StoredAgain(shop, kCannedNoteFile, CannedNotesIn) == notes);
  Refusable([&] {
    const std::string labor = StoredAgain(shop, kCannedLaborFile, CannedLaborIn);
    Require(StoredAgain(shop, kCannedLaborFile, CannedLaborIn) == labor);
  });
}

}  // namespace lantos::fuzz
