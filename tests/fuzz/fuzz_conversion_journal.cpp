#include "Readers.h"
#include "Target.h"
#include "workorders/ConversionJournal.h"

// The bytes as a journal that was left behind; the same behind a sound beginning, and with the checks of their lines.
namespace lantos::fuzz {

namespace {

constexpr std::string_view kJournal = "AJ930000.JNL";

void Look(QuietShop& shop, std::string_view bytes) {
  shop.Put(kJournal, bytes);
  std::string content;
  {
    const ConversionJournal journal(shop.environment, shop.desktop, std::string(kJournal));
    content = journal.Content();
  }
  Require(shop.Content(kJournal) == bytes);
  const auto begun = ReadJournal(content);
  if (!begun) return;
  Require(begun->estimate >= 0 && begun->workorder >= 0);
  for (const JournaledPart& part : begun->parts) Require(!part.number.empty());
}

}  // namespace

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  Look(shop, bytes);
  std::string sound;
  {
    ConversionJournal journal(shop.environment, shop.desktop, 1001, 5001);
    journal.TakesNumber();
    journal.WillWrite(std::string(bytes.substr(0, bytes.find_first_of("\r\n"))));
    sound = journal.Content();
    journal.Remove();
  }
  Require(ReadJournal(sound).has_value());
  Look(shop, sound + std::string(bytes));
}

}  // namespace lantos::fuzz
