#include "masters/NameSearch.h"

#include <array>

namespace lantos {
namespace {

using FoldTable = std::array<char, 256>;

FoldTable MakeFoldTable() {
  FoldTable table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = ToUpper(static_cast<char>(static_cast<unsigned char>(i)));
  return table;
}

const FoldTable& Folds() {
  static const FoldTable table = MakeFoldTable();
  return table;
}

inline char Fold(const FoldTable& table, char c) { return table[static_cast<unsigned char>(c)]; }

// The field's text up to its first NUL. Blanks around it stay: no needle begins or ends with one, so they can't make
// a difference, and trimming each key would cost more than the search.
std::string_view Untrimmed(const CustomerTag& tag, TextField field) {
  const char* bytes = reinterpret_cast<const char*>(tag.Bytes().data()) + field.offset;
  const void* nul = std::memchr(bytes, '\0', field.width);
  return {bytes, nul == nullptr ? field.width : static_cast<std::size_t>(static_cast<const char*>(nul) - bytes)};
}

}  // namespace

CaselessNeedle::CaselessNeedle(std::string_view text) : folded_(text) {
  for (char& c : folded_) c = Fold(Folds(), c);
}

bool CaselessNeedle::OccursIn(std::string_view haystack) const {
  const std::size_t length = folded_.size();
  if (length == 0) return true;
  if (haystack.size() < length) return false;
  const FoldTable& fold = Folds();
  const char first = folded_.front();
  const char* const end = haystack.data() + (haystack.size() - length + 1);
  for (const char* at = haystack.data(); at != end; ++at) {
    if (Fold(fold, *at) != first) continue;
    std::size_t i = 1;
    while (i < length && Fold(fold, at[i]) == folded_[i]) ++i;
    if (i == length) return true;
  }
  return false;
}

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
