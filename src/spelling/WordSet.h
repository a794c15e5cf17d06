#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

namespace lantos {

// Words without regard to case.
class WordSet {
 public:
  // One word as it is.
  void Add(std::string_view word);
  // Each word of a text.
  void AddWordsOf(std::string_view text);
  bool Has(std::string_view word) const;
  bool Empty() const { return words_.empty(); }

 private:
  std::unordered_set<std::string> words_;  // in capitals
};

}  // namespace lantos
