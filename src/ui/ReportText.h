#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lantos::ui {

// Texts of a report as lines on paper. Widths and sizes are points.

// Broken at line ends of any kind.
std::vector<std::string> LinesOf(std::string_view text);
// Broken also where a line is wider than the room: at a blank, which is left out, or within a word that is wider alone.
// Tabs are blanks up to the next eighth column. In Arial, plain.
std::vector<std::string> WrappedLabel(std::string_view text, double size, double room);
// One line, of so many characters at most; what goes on begins below the line's own first letter where that leaves it
// half of the room.
std::vector<std::string> WrappedLine(const std::string& line, std::size_t characters);

}  // namespace lantos::ui
