#pragma once

#include <string>
#include <string_view>

// Text inside the program is bytes in the Windows ANSI page (1252), one byte a character.
namespace lantos {

// Blanks are the only characters that are trimmed; tabs and line ends stay.
std::string_view TrimView(std::string_view text);
std::string Trim(std::string_view text);

// The part before the first NUL, trimmed; a text without NUL is trimmed as it stands.
std::string TrimNull(std::string_view text);

// n + 1 NUL characters: one more than asked for, the surplus falls away when it is cut to the field.
std::string NulField(std::size_t n);

std::string LeftJustify(std::string_view text, std::size_t width);   // padded with blanks, cut at width
std::string RightJustify(std::string_view text, std::size_t width);  // padded in front, never cut
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);
// From the 1-based position on; past the end it is empty.
std::string Mid(std::string_view text, std::size_t position, std::size_t count = std::string_view::npos);

char ToUpper(char c);  // letters of the whole page, Latin-1 ones too
char ToLower(char c);
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
// An empty needle occurs everywhere.
bool Contains(std::string_view text, std::string_view needle);
bool ContainsIgnoringCase(std::string_view text, std::string_view needle);

// The number that a text begins with, blanks skipped: "12abc" is 12, "abc" is 0, "&H1F" is 31. A number too
// large for a double throws std::out_of_range.
double Val(std::string_view text);
// Whether the whole text is one number as a person types it: sign, thousands commas, "$", brackets for minus.
bool IsNumeric(std::string_view text);
// The value of a text that IsNumeric accepts; anything else throws std::invalid_argument.
double ToNumber(std::string_view text);
// As ToNumber, rounded half to even; a text that is no number gives 0.
std::int32_t ToLongOrZero(std::string_view text);
// A stored "True" or "False", or a number where 0 is false; anything else throws std::invalid_argument.
bool ToBoolean(std::string_view text);

// Doubles every single quote for use in a statement text. A pair that already stands, read from the left, is not
// doubled again: quotes never come out in an odd number.
std::string QuoteForSql(std::string_view text);
// Double quote to "|", single quote to "~".
std::string CleanForFile(std::string_view text);
// Splits at the first "="; with none, all goes to key and value is empty.
void SplitKeyValue(std::string_view text, std::string& key, std::string& value);

// The borders to Unicode. What the page can't hold becomes "?"; malformed UTF-8 too. Names of directories cross them
// by TextOfPath (frame/PathText.h), which loses nothing; ToUtf8 shows its forms as the characters that they stand for.
std::string ToUtf8(std::string_view ansi);
std::string FromUtf8(std::string_view utf8);

}  // namespace lantos
