#pragma once

#include <string>
#include <string_view>

#include "frame/CaselessNeedle.h"
#include "records/Customers.h"

namespace lantos {

// The first two characters of a needle in both cases, looked for in a fixed stretch of bytes: nearly all tags are
// passed over by this one look, which the compiler makes into a few vector instructions.
class PairFilter {
 public:
  PairFilter() = default;
  explicit PairFilter(const CaselessNeedle& needle);
  // False when the needle can't be in the tag's keys. Reads one byte behind them.
  bool MayOccurIn(const CustomerTag& tag) const;

 private:
  struct Letter {
    unsigned char upper = 0;
    unsigned char lower = 0;
    unsigned char any = 1;  // 1 when every character will do
  };
  static Letter LetterAt(const std::string& folded, std::size_t place);

  Letter first_;
  Letter second_;
};

// What was typed into the name field of the customer search.
//
// With a comma at its second place or later the text is a last name and a first name, each looked for in its own part
// of a key. Without one it is looked for in the whole key. A comma at the first place is an ordinary character.
class NameQuery {
 public:
  explicit NameQuery(std::string_view searchText);
  // Whether the name or the spouse's name of the tag is meant. Nothing is copied: this runs over all tags of a shop.
  bool Matches(const CustomerTag& tag) const;

 private:
  bool MatchesKey(std::string_view key) const;

  PairFilter filter_;
  bool split_ = false;
  CaselessNeedle last_;  // the whole text when it isn't split
  CaselessNeedle first_;
};

struct NameParts {
  std::string last;
  std::string first;
};
// A name as typed, at its first comma, each part trimmed. Without a comma all of it is the last name.
NameParts SplitName(std::string_view typed);

}  // namespace lantos
