#include "spelling/TextWords.h"

#include <algorithm>

#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kSentenceEnds = ".!?\r\n";
constexpr std::size_t kNear = 120;
constexpr std::string_view kMarkBefore = "\xBB";  // angle quotes
constexpr std::string_view kMarkBehind = "\xAB";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsApostrophe(char c) { return c == '\'' || c == '\x92'; }

// Of the whole page; sharp s and the italic f have no capital in it.
bool IsLetter(char c) { return ToUpper(c) != ToLower(c) || c == '\xDF' || c == '\x83'; }

bool IsOfWord(char c) { return IsLetter(c) || IsDigit(c) || IsApostrophe(c); }

bool IsAddress(std::string_view chunk) {
  return Contains(chunk, "@") || Contains(chunk, "://") || ToLower(chunk.substr(0, 4)) == "www.";
}

// Without the apostrophes at its ends, which are quotation marks.
WordPlace WithoutQuotes(std::string_view text, WordPlace word) {
  while (word.length > 0 && IsApostrophe(text[word.begin])) ++word.begin, --word.length;
  while (word.length > 0 && IsApostrophe(text[word.End() - 1])) --word.length;
  return word;
}

bool IsWord(std::string_view word) { return word.size() > 1 && std::none_of(word.begin(), word.end(), IsDigit); }

// Among what stands between two blanks.
std::optional<WordPlace> WordOfChunk(std::string_view text, std::size_t from, std::size_t end) {
  while (from < end) {
    if (!IsOfWord(text[from])) {
      ++from;
      continue;
    }
    WordPlace word{from, 0};
    while (word.End() < end && IsOfWord(text[word.End()])) ++word.length;
    from = word.End();
    word = WithoutQuotes(text, word);
    if (IsWord(text.substr(word.begin, word.length))) return word;
  }
  return std::nullopt;
}

std::string OnOneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n' || c == '\t'; }, ' ');
  return line;
}

}  // namespace

std::optional<WordPlace> NextWord(std::string_view text, std::size_t from) {
  while (from < text.size()) {
    const std::size_t begin = text.find_first_not_of(kBlanks, from);
    if (begin == std::string_view::npos) break;
    const std::size_t end = std::min(text.find_first_of(kBlanks, begin), text.size());
    if (!IsAddress(text.substr(begin, end - begin))) {
      if (const auto word = WordOfChunk(text, begin, end)) return word;
    }
    from = end;
  }
  return std::nullopt;
}

std::string SentenceAround(std::string_view text, const WordPlace& word) {
  std::size_t begin = word.begin == 0 ? std::string_view::npos : text.find_last_of(kSentenceEnds, word.begin - 1);
  begin = begin == std::string_view::npos ? 0 : begin + 1;
  begin = std::max(begin, word.begin - std::min(word.begin, kNear));
  std::size_t end = text.find_first_of(kSentenceEnds, word.End());
  if (end != std::string_view::npos && text[end] != '\r' && text[end] != '\n') ++end;
  end = std::min({end, text.size(), word.End() + kNear});
  std::string sentence(text.substr(begin, word.begin - begin));
  sentence.append(kMarkBefore)
      .append(word.In(text))
      .append(kMarkBehind)
      .append(text.substr(word.End(), end - word.End()));
  return Trim(OnOneLine(sentence));
}

}  // namespace lantos
