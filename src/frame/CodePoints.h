#pragma once

#include <optional>
#include <string>
#include <string_view>

// Characters of Unicode one by one: what the borders of the program's page are made of.
namespace lantos {

inline constexpr char32_t kMalformed = 0xFFFFFFFF;

// The character at position, which moves behind it. Of malformed UTF-8 one byte is passed, and kMalformed returned.
char32_t NextCodePoint(std::string_view utf8, std::size_t& position);
void AppendUtf8(std::string& text, char32_t point);
// The byte that stands for it in the Windows ANSI page (1252); nothing where the page hasn't got it. The five places
// that the page leaves open stand for themselves.
std::optional<char> InPage(char32_t point);
char32_t OfPage(char c);

// Such a text is the same in UTF-8 and in the page.
bool IsAscii(std::string_view text);

}  // namespace lantos
