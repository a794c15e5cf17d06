#include "masters/customers/NameSearch.h"
#include "records/CustomerTag.h"

namespace lantos {
namespace {

// The field's text up to its first NUL. Blanks around it stay: no needle begins or ends with one, so they can't make
// a difference, and trimming each key would cost more than the search.
std::string_view Untrimmed(const CustomerTag& tag, TextField field) {
  const char* bytes = reinterpret_cast<const char*>(tag.Bytes().data()) + field.offset;
  const void* nul = std::memchr(bytes, '\0', field.width);
  return {bytes, nul == nullptr ? field.width : static_cast<std::size_t>(static_cast<const char*>(nul) - bytes)};
}

}  // namespace

PairFilter::Letter PairFilter::LetterAt(const std::string& folded, std::size_t place) {
  if (place >= folded.size()) return {};
  return {static_cast<unsigned char>(folded[place]), static_cast<unsigned char>(ToLower(folded[place])), 0};
}

PairFilter::PairFilter(const CaselessNeedle& needle)
    : first_(LetterAt(needle.Folded(), 0)), second_(LetterAt(needle.Folded(), 1)) {}

bool PairFilter::MayOccurIn(const CustomerTag& tag) const {
  constexpr std::size_t kStart = customertag::NameKey.offset;
  constexpr std::size_t kLength = customertag::SpouseKey.End() - kStart;
  static_assert(customertag::SpouseKey.offset == customertag::NameKey.End() && kStart + kLength < CustomerTag::kLength);
  const auto* bytes = reinterpret_cast<const unsigned char*>(tag.Bytes().data()) + kStart;
  const Letter first = first_;
  const Letter second = second_;
  unsigned char found = 0;
  for (std::size_t i = 0; i < kLength; ++i) {
    const auto here = static_cast<unsigned char>((bytes[i] == first.upper) | (bytes[i] == first.lower) | first.any);
    const auto next =
        static_cast<unsigned char>((bytes[i + 1] == second.upper) | (bytes[i + 1] == second.lower) | second.any);
    found = static_cast<unsigned char>(found | (here & next));
  }
  return found != 0;
}

NameQuery::NameQuery(std::string_view searchText) {
  const std::string_view text = TrimView(searchText);
  const std::size_t comma = text.find(',');
  split_ = comma != std::string_view::npos && comma > 0;
  if (split_) {
    last_ = CaselessNeedle(TrimView(text.substr(0, comma)));
    first_ = CaselessNeedle(TrimView(text.substr(comma + 1)));
  } else {
    last_ = CaselessNeedle(text);
  }
  filter_ = PairFilter(last_.IsEmpty() ? first_ : last_);
}

bool NameQuery::MatchesKey(std::string_view key) const {
  if (!split_) return last_.OccursIn(key);
  const std::size_t comma = key.find(',');
  if (comma == std::string_view::npos) return last_.OccursIn(key) && first_.OccursIn(key);
  return last_.OccursIn(key.substr(0, comma)) && first_.OccursIn(key.substr(comma + 1));
}

bool NameQuery::Matches(const CustomerTag& tag) const {
  if (!filter_.MayOccurIn(tag)) return false;
  return MatchesKey(Untrimmed(tag, customertag::NameKey)) || MatchesKey(Untrimmed(tag, customertag::SpouseKey));
}

NameParts SplitName(std::string_view typed) {
  const std::size_t comma = typed.find(',');
  if (comma == std::string_view::npos) return {Trim(typed), ""};
  return {Trim(typed.substr(0, comma)), Trim(typed.substr(comma + 1))};
}

}  // namespace lantos
