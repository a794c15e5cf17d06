#include "contents/notes/NoteText.h"

#include <algorithm>

#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Takes the next line off the text.
std::string TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\r');
  std::string line(text.substr(0, end));
  text.remove_prefix(end == std::string_view::npos ? text.size() : std::min(end + kLineEnd.size(), text.size()));
  return line;
}

// Cuts a line that is too long; what it loses is the result.
std::string Wrap(std::string& line) {
  const std::size_t blank = line.rfind(' ', kNoteLineWidth - 1);
  const std::size_t cut = blank == std::string::npos ? kNoteLineWidth : blank + 1;
  std::string rest = Trim(std::string_view(line).substr(cut));
  line = Trim(std::string_view(line).substr(0, cut));
  return rest;
}

}  // namespace

FlowedNote FlowNote(std::string_view text) {
  FlowedNote flowed;
  std::string carried;
  bool carry = false;
  for (std::string& line : flowed.lines) {
    line = carry ? std::move(carried) : TakeLine(text);
    carried.clear();
    carry = line.size() > kNoteLineWidth;
    if (carry) carried = Wrap(line);  // the next line, even if it is empty
    line = Trim(line);
  }
  std::stable_partition(flowed.lines.begin(), flowed.lines.end(),
                        [](const std::string& line) { return !line.empty(); });
  flowed.remainder = carried;
  if (!carried.empty() && !text.empty()) flowed.remainder += kLineEnd;
  flowed.remainder += text;
  return flowed;
}

std::string TextOfNote(const Note& note) {
  std::string text;
  std::string ends;  // of the lines so far that no text has followed yet
  for (const std::string& line : note) {
    if (!line.empty()) {
      text += ends + line;
      ends.clear();
    }
    ends += kLineEnd;
  }
  return text;
}

}  // namespace lantos
