#pragma once

#include <array>
#include <string>
#include <string_view>

namespace lantos {

// The text of a labor line: eight lines of at most 64 characters, which lie in the database joined by tabs.
inline constexpr std::size_t kLaborTextLines = 8;
inline constexpr std::size_t kLaborLineWidth = 64;
using LaborText = std::array<std::string, kLaborTextLines>;

// At tabs, in order, each line trimmed. What stands behind the eighth tab belongs to no line.
LaborText SplitLaborText(std::string_view text);
// All eight, each cut at its first NUL and trimmed: there are always seven tabs.
std::string JoinLaborText(const LaborText& lines);

struct FlowedLabor {
  LaborText lines;
  std::string remainder;  // of a line that is too long for the eighth; whole lines behind it are dropped without a word
};
// A text into lines: at its carriage returns, and at the last blank that lets a line keep its width. A word that is
// longer than a line has no place to break: throws std::invalid_argument.
FlowedLabor FlowDescription(std::string_view text);

// The lines as a text to edit, empty ones left out: a line that is nearly full was wrapped, and goes on with a blank.
std::string TextOfLabor(const LaborText& lines);

}  // namespace lantos
