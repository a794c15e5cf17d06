#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// The directory's name is text like any other to the program, shown in captions and boxes, yet the platform allows any
// bytes in it. A character beyond the page is written as its number in capital hexadecimal digits between two bytes
// that the page leaves open; a byte that isn't UTF-8 as 0xDC00 plus the byte. ToUtf8 knows the form, so that people
// see the character itself (a replacement mark for such a byte).
namespace lantos {

// Nothing is lost: PathOfText gives the very bytes back.
std::string TextOfPath(const std::filesystem::path& path);

// The bytes that a text names. A text that is UTF-8 as it stands is taken for what the platform wrote: text of the page
// hardly ever looks like it by accident.
std::string PathOfText(std::string_view text);

// Text that may be the platform's or the page's: UTF-8 is taken into the page as by TextOfPath, all else stays.
std::string TextOfPlatform(std::string_view text);

// As a file of text has it: with the characters themselves, in UTF-8, where the page hasn't got one of them.
// TextOfPlatform takes it back. A name that isn't UTF-8 keeps its form.
std::string StoredPathText(std::string_view text);

// The number in the form at a position of a text, which moves behind it; nothing, and no move, where there is none.
std::optional<char32_t> NextEscape(std::string_view text, std::size_t& position);

// A text with each form replaced by what people read, in UTF-8; the rest stays in the page. For the run log.
std::string WithReadableEscapes(std::string_view text);

}  // namespace lantos
