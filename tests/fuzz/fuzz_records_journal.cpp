#include "Readers.h"
#include "Target.h"
#include "frame/JournalLines.h"
#include "records/WriteAhead.h"
#include "shop/HalfStored.h"

// The bytes as a journal of records that was left behind; the same behind a sound beginning, and with the checks of
// their lines. Whatever they say, no file is written but those that such a journal may name.
namespace lantos::fuzz {

namespace {

constexpr std::string_view kJournal = "AR930000.JNL";

void Look(QuietShop& shop, std::string_view bytes) {
  shop.Put(kJournal, bytes);
  shop.Put("TQCSTTAG.DAT", "tag-2");
  shop.Put("TQCSTDAT.DAT", "master-1");
  const std::string system = "counters";
  shop.Put("TQSYSTEM.DAT", system);
  SettleRecords(shop.environment, shop.desktop, {std::string(kJournal)});
  Require(shop.Content("TQSYSTEM.DAT") == system);
  const WrittenAhead ahead = ReadWriteAhead(bytes);
  for (const RecordBytes& record : ahead.records) {
    Require(record.before.size() <= record.after.size());
    Require(record.file.find('/') == std::string::npos);
  }
}

}  // namespace

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  Look(shop, bytes);
  const std::string sound =
      JournalLine("Lantos records 1") + JournalLine("of Customer 000007") + JournalLine("begun 2003-09-30T08:15:00 X");
  Look(shop, sound + std::string(bytes));
  const std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  Look(shop, sound + JournalLine("bytes " + std::string(line)) + JournalLine("end"));
}

}  // namespace lantos::fuzz
