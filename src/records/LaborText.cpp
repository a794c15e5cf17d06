#include "records/LaborText.h"

#include <algorithm>
#include <stdexcept>

#include "frame/Text.h"

namespace lantos {

namespace {

constexpr char kLineMark = '\t';
constexpr std::size_t kWrappedLine = 62;  // a longer line than this ended in a wrap

std::string TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\r');
  std::string line(text.substr(0, end));
  text.remove_prefix(end == std::string_view::npos ? text.size() : std::min(end + 2, text.size()));
  return line;
}

// Cuts the text at the last blank among its first 65 characters; the rest is the result.
std::string WrapLine(std::string& text) {
  const std::size_t blank = text.rfind(' ', kLaborLineWidth);
  if (blank == std::string::npos) {
    throw std::invalid_argument("The labor description has a word that is longer than a line: \"" +
                                text.substr(0, kLaborLineWidth) + "\". Invalid procedure call or argument.");
  }
  std::string rest = Trim(std::string_view(text).substr(blank));
  text = Trim(std::string_view(text).substr(0, blank));
  return rest;
}

}  // namespace

LaborText SplitLaborText(std::string_view text) {
  LaborText lines;
  for (std::string& line : lines) {
    const std::size_t mark = text.find(kLineMark);
    line = Trim(text.substr(0, mark));
    if (mark == std::string_view::npos) break;
    text.remove_prefix(mark + 1);
  }
  return lines;
}

std::string JoinLaborText(const LaborText& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) text += kLineMark;
    text += TrimNull(lines[i]);
  }
  return text;
}

FlowedLabor FlowDescription(std::string_view text) {
  FlowedLabor flowed;
  std::string carried;
  bool carry = false;
  for (std::string& line : flowed.lines) {
    line = carry ? std::move(carried) : TakeLine(text);
    carried.clear();
    carry = line.size() > kLaborLineWidth;
    if (carry) carried = WrapLine(line);  // the next line, even if it is empty
  }
  flowed.remainder = carried;
  return flowed;
}

std::string TextOfLabor(const LaborText& lines) {
  std::string text = lines[0];
  std::size_t previous = lines[0].size();
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (lines[i].empty()) continue;
    text += previous > kWrappedLine ? " " : "\r\n";
    text += lines[i];
    previous = lines[i].size();
  }
  return text;
}

}  // namespace lantos
