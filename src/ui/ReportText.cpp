#include "ui/ReportText.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "ui/Desktop.h"

namespace lantos::ui {

namespace {

constexpr std::size_t kTabColumns = 8;
constexpr double kRounding = 0.01;  // points that a line may seem to be too wide
constexpr int kEm = 2048;
constexpr unsigned char kFirstPrinted = ' ';

// What each character of code page 1252 takes in Arial, from the blank on; fonts made to stand in for it have the same
// widths. Taken from a table, a line breaks alike on every desktop.
// clang-format off
constexpr std::uint16_t kWidths[] = {
    569, 569, 727, 1139, 1139, 1821, 1366, 391, 682, 682, 797, 1196, 569, 682, 569, 569,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 569, 569, 1196, 1196, 1196, 1139,
    2079, 1366, 1366, 1479, 1479, 1366, 1251, 1593, 1479, 569, 1024, 1366, 1139, 1706, 1479, 1593,
    1366, 1593, 1479, 1366, 1251, 1479, 1366, 1933, 1366, 1366, 1251, 569, 569, 569, 961, 1139,
    682, 1139, 1139, 1024, 1139, 1139, 569, 1139, 1139, 455, 455, 1024, 455, 1706, 1139, 1139,
    1139, 1139, 682, 1024, 569, 1139, 1024, 1479, 1024, 1024, 1024, 684, 532, 684, 1196, 748,
    1139, 0, 455, 1139, 682, 2048, 1139, 1139, 682, 2048, 1366, 682, 2048, 0, 1251, 0,
    0, 455, 455, 682, 682, 717, 1139, 2048, 682, 2048, 1024, 682, 1933, 0, 1024, 1366,
    569, 682, 1139, 1139, 1139, 1139, 532, 1139, 682, 1509, 758, 1139, 1196, 682, 1509, 1131,
    819, 1124, 682, 682, 682, 1180, 1100, 569, 682, 682, 748, 1139, 1708, 1708, 1708, 1251,
    1366, 1366, 1366, 1366, 1366, 1366, 2048, 1479, 1366, 1366, 1366, 1366, 569, 569, 569, 569,
    1479, 1479, 1593, 1593, 1593, 1593, 1593, 1196, 1593, 1479, 1479, 1479, 1479, 1366, 1366, 1251,
    1139, 1139, 1139, 1139, 1139, 1139, 1821, 1024, 1139, 1139, 1139, 1139, 569, 569, 569, 569,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 1124, 1251, 1139, 1139, 1139, 1139, 1024, 1139, 1024,
};
// clang-format on
static_assert(std::size(kWidths) == 256 - kFirstPrinted);

double WidthOf(char character, double size) {
  const auto code = static_cast<unsigned char>(character);
  return code < kFirstPrinted ? 0 : kWidths[code - kFirstPrinted] * size / kEm;
}

std::string WithoutTabs(const std::string& line) {
  std::string plain;
  for (const char c : line)
    c == '\t' ? plain.append(kTabColumns - plain.size() % kTabColumns, ' ') : plain.append(1, c);
  return plain;
}

// Where the line that begins there ends, and the next one begins. Blanks at its end need no room.
struct Break {
  std::size_t end, next;
};

template <class Width>
Break BreakOf(const std::string& text, std::size_t start, double room, Width width) {
  const std::size_t word = text.find_first_not_of(' ', start);
  std::size_t blank = std::string::npos, at = start;
  for (double used = 0; at < text.size(); ++at) {
    used += width(text[at]);
    if (text[at] == ' ' && at > word) blank = at;
    if (text[at] != ' ' && used > room + kRounding) break;
  }
  if (at == text.size()) return {at, at};
  if (blank != std::string::npos) return {text.find_last_not_of(' ', blank) + 1, blank + 1};
  at = std::max(at, start + 1);
  return {at, at};
}

}  // namespace

std::vector<std::string> LinesOf(std::string_view text) {
  const std::string plain = WithLineFeeds(text);
  std::vector<std::string> lines;
  for (std::size_t start = 0;;) {
    const std::size_t end = plain.find('\n', start);
    lines.push_back(plain.substr(start, end == std::string::npos ? end : end - start));
    if (end == std::string::npos) return lines;
    start = end + 1;
  }
}

std::vector<std::string> WrappedLabel(std::string_view text, double size, double room) {
  std::vector<std::string> lines;
  for (const std::string& given : LinesOf(text)) {
    const std::string line = WithoutTabs(given);
    std::size_t start = 0;
    do {
      const Break at = BreakOf(line, start, room, [size](char c) { return WidthOf(c, size); });
      lines.push_back(line.substr(start, at.end - start));
      start = at.next;
    } while (start < line.size());
  }
  return lines;
}

std::vector<std::string> WrappedLine(const std::string& line, std::size_t characters) {
  if (line.size() <= characters) return {line};
  const std::size_t ahead = line.find_first_not_of(' ');
  const std::string indent(ahead <= characters / 2 ? ahead : 0, ' ');
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < line.size();) {
    const std::string before = start == 0 ? std::string() : indent;
    const auto room = static_cast<double>(characters - before.size());
    const Break at = BreakOf(line, start, room, [](char) { return 1.0; });
    lines.push_back(before + line.substr(start, at.end - start));
    start = at.next;
  }
  return lines;
}

}  // namespace lantos::ui
