#include "spelling/WordSet.h"

#include "frame/Text.h"
#include "spelling/TextWords.h"

namespace lantos {

void WordSet::Add(std::string_view word) {
  if (!word.empty()) words_.insert(ToUpper(word));
}

void WordSet::AddWordsOf(std::string_view text) {
  for (auto word = NextWord(text, 0); word; word = NextWord(text, word->End())) Add(word->In(text));
}

bool WordSet::Has(std::string_view word) const { return words_.contains(ToUpper(word)); }

}  // namespace lantos
