#include "estimatedb/engine/SqlWords.h"

#include <algorithm>

#include "frame/Text.h"

namespace lantos {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f'; }

bool IsNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

// The length of the text that begins with a quote, up to and with its end; a doubled quote doesn't end it.
std::size_t QuotedLength(std::string_view text, char end) {
  std::size_t at = 1;
  while (at < text.size()) {
    if (text[at++] != end) continue;
    if (at >= text.size() || text[at] != end) return at;
    ++at;
  }
  return at;
}

std::size_t GapLength(std::string_view text) {
  if (text.starts_with("--")) return std::min(text.find('\n'), text.size());
  if (text.starts_with("/*")) {
    const std::size_t end = text.find("*/", 2);
    return end == std::string_view::npos ? text.size() : end + 2;
  }
  std::size_t at = 0;
  while (at < text.size() && IsBlank(text[at])) ++at;
  return at;
}

Word FirstWord(std::string_view text) {
  if (const std::size_t gap = GapLength(text); gap > 0) return {WordKind::Gap, text.substr(0, gap)};
  switch (text.front()) {
    case '\'':
      return {WordKind::Literal, text.substr(0, QuotedLength(text, '\''))};
    case '"':
      return {WordKind::DoubleQuoted, text.substr(0, QuotedLength(text, '"'))};
    case '`':
      return {WordKind::Name, text.substr(0, QuotedLength(text, '`'))};
    case '[':
      return {WordKind::Name, text.substr(0, QuotedLength(text, ']'))};
    default:
      break;
  }
  std::size_t at = 0;
  while (at < text.size() && IsNameCharacter(text[at])) ++at;
  if (at > 0) return {WordKind::Name, text.substr(0, at)};
  return {WordKind::Sign, text.substr(0, 1)};
}

std::string Quoted(std::string_view text, char quote) {
  std::string result(1, quote);
  for (const char c : text) result.append(c == quote ? 2 : 1, c);
  return result += quote;
}

}  // namespace

std::vector<Word> CutIntoWords(std::string_view statement) {
  std::vector<Word> words;
  while (!statement.empty()) {
    words.push_back(FirstWord(statement));
    statement.remove_prefix(words.back().text.size());
  }
  return words;
}

std::vector<Word> MeaningfulWords(std::string_view statement) {
  std::vector<Word> words = CutIntoWords(statement);
  std::erase_if(words, [](const Word& word) { return word.kind == WordKind::Gap; });
  return words;
}

bool IsKeyword(const Word& word, std::string_view keyword) {
  return word.kind == WordKind::Name && EqualsIgnoringCase(word.text, keyword);
}

bool IsSign(const Word& word, char sign) { return word.kind == WordKind::Sign && word.text.front() == sign; }

std::string Unquoted(std::string_view text) {
  if (text.size() < 2) return std::string(text);
  const char open = text.front();
  const char close = open == '[' ? ']' : open;
  if ((open != '\'' && open != '"' && open != '`' && open != '[') || text.back() != close) return std::string(text);
  text = text.substr(1, text.size() - 2);
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    result += text[at];
    if (text[at] == close && at + 1 < text.size() && text[at + 1] == close) ++at;
  }
  return result;
}

std::string QuotedText(std::string_view text) { return Quoted(text, '\''); }

std::string QuotedName(std::string_view name) { return Quoted(name, '"'); }

}  // namespace lantos
