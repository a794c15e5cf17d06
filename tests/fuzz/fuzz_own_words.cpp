#include "Target.h"
#include "spelling/OwnWords.h"
#include "spelling/TextWords.h"

namespace lantos::fuzz {

// The same bytes as a file of words, and as a text whose words are looked for.
void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put("words.txt", bytes);
  OwnWords own(shop.settings.Directory());
  const WordSet words = own.Load();
  std::size_t behind = 0;
  for (auto word = NextWord(bytes, 0); word; word = NextWord(bytes, behind)) {
    Require(word->begin >= behind && word->length > 1 && word->End() <= bytes.size());
    behind = word->End();
    See(words.Has(word->In(bytes)) ? "known" : "unknown");
    See(SentenceAround(bytes, *word));
  }
  Require(own.Add({"serpentine"}));
  Require(own.Load().Has("Serpentine"));
}

}  // namespace lantos::fuzz
