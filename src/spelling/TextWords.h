#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lantos {

// A word of a text.
struct WordPlace {
  std::size_t begin = 0;
  std::size_t length = 0;

  std::size_t End() const { return begin + length; }
  std::string In(std::string_view text) const { return std::string(text.substr(begin, length)); }
};

// The first word that a dictionary can be asked about, from a place on: two letters or more, with apostrophes between
// them. What has a digit is a number or a code, and addresses of mail and pages are no words either.
std::optional<WordPlace> NextWord(std::string_view text, std::size_t from);

// The sentence that the word stands in, without line ends, with marks around the word; of a very long one what is near.
std::string SentenceAround(std::string_view text, const WordPlace& word);

}  // namespace lantos
