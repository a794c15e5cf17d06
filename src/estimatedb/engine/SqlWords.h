#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lantos {

// A statement's text, cut into what it consists of. Gaps are blanks, line ends and comments.
enum class WordKind { Gap, Name, Literal, DoubleQuoted, Sign };

struct Word {
  WordKind kind;
  std::string_view text;  // a part of the statement
};

std::vector<Word> CutIntoWords(std::string_view statement);
// Without the gaps.
std::vector<Word> MeaningfulWords(std::string_view statement);

// Without regard to case. A quoted name never is a keyword.
bool IsKeyword(const Word& word, std::string_view keyword);
bool IsSign(const Word& word, char sign);
// The inside of a quoted text or name, doubled quotes made single; anything else as it is.
std::string Unquoted(std::string_view text);
// As a literal in single quotes, and as a name in double quotes.
std::string QuotedText(std::string_view text);
std::string QuotedName(std::string_view name);

}  // namespace lantos
