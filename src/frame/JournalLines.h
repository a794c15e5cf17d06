#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>

#include "frame/Environment.h"
#include "frame/SharedFile.h"

namespace lantos {

// Journals: short text files in DataDir under this copy's name, in which stands ahead of a writing what it will write.
// Each line ends with its check and CR LF.

// Makes the file: the prefix, what tells this copy's log from those of the others, and ".JNL"; ".J01" and so on where
// this copy has left some behind. Empty where a hundred of them are there; throws FileError when it can't be made.
std::string MakeJournal(const Environment& environment, std::string_view prefix);
// The name that is tried first.
std::string FirstJournalOf(const Environment& environment, std::string_view prefix);
// Empties it, if it is open, and deletes it. A failure goes to the run log.
void DeleteJournal(Environment& environment, const std::string& name, SharedFile& file);
// Whole lines of an open journal only, in the program's page; what one of a megabyte has behind that is left out.
std::string JournalContent(const SharedFile& file);

// The line as it stands in the file.
std::string JournalLine(std::string_view line);
// Takes a line, without its check, from the front of what JournalContent gave, which must not be empty. Nothing where
// it is damaged.
std::optional<std::string_view> TakeJournalLine(std::string_view& content);

// A text in a line of its own: what would end the line, or begins such a mark, stands as "%" and two digits.
std::string InOneLine(std::string_view text);
std::string FromOneLine(std::string_view line);
// From the front of a line, with the blank behind it.
std::string_view TakeWord(std::string_view& line);
template <class Number>
bool TakeNumber(std::string_view& line, Number& number) {
  const std::string_view word = TakeWord(line);
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  return error == std::errc() && end == word.data() + word.size() && !word.empty();
}

}  // namespace lantos
