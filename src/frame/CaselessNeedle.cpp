#include "frame/CaselessNeedle.h"

#include <array>

#include "frame/Text.h"

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

}  // namespace lantos
