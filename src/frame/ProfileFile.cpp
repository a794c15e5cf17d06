#include "frame/ProfileFile.h"

#include <optional>
#include <vector>

#include "frame/LockedText.h"
#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// The lines of a text, each with its own line end.
std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    std::size_t end = text.find_first_of("\r\n", start);
    if (end == std::string::npos) {
      end = text.size();
    } else {
      end += text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n' ? 2 : 1;
    }
    lines.push_back(text.substr(start, end - start));
    start = end;
  }
  return lines;
}

std::string_view Blankless(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string_view WithoutLineEnd(std::string_view line) {
  return line.substr(0, std::min(line.find_first_of("\r\n"), line.size()));
}

std::string_view LineEndOf(std::string_view line) { return line.substr(WithoutLineEnd(line).size()); }

// The name between brackets, if the line opens a section.
std::optional<std::string_view> SectionOf(std::string_view line) {
  const std::string_view text = Blankless(WithoutLineEnd(line));
  if (text.empty() || text.front() != '[') return std::nullopt;
  return Blankless(text.substr(1, text.find(']') == std::string_view::npos ? text.size() : text.find(']') - 1));
}

bool IsKey(std::string_view line, std::string_view key) {
  const std::string_view text = Blankless(WithoutLineEnd(line));
  if (text.empty() || text.front() == ';') return false;
  const std::size_t equals = text.find('=');
  return equals != std::string_view::npos && EqualsIgnoringCase(Blankless(text.substr(0, equals)), key);
}

struct Place {
  std::optional<std::size_t> section;  // the line that opens it
  std::optional<std::size_t> key;
  std::size_t sectionEnd = 0;  // behind the section's last line that isn't blank
};

Place Locate(const std::vector<std::string>& lines, std::string_view section, std::string_view key) {
  Place place;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (const auto name = SectionOf(lines[i])) {
      if (place.section) break;
      if (EqualsIgnoringCase(*name, section)) {
        place.section = i;
        place.sectionEnd = i + 1;
      }
    } else if (place.section) {
      if (IsKey(lines[i], key)) {
        place.key = i;
        break;
      }
      if (!Blankless(WithoutLineEnd(lines[i])).empty()) place.sectionEnd = i + 1;
    }
  }
  return place;
}

// A key, a value or a section name can't hold a line end: the rest would become lines of its own.
std::string OneLine(std::string_view text) { return std::string(WithoutLineEnd(text.substr(0, text.find('\0')))); }

std::string TextOf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line;
  return text;
}

// So that a line can follow.
void EndLine(std::vector<std::string>& lines, std::string_view lineEnd) {
  if (!lines.empty() && LineEndOf(lines.back()).empty()) lines.back() += lineEnd;
}

// The lines with the entry in its place.
void PutEntry(std::vector<std::string>& lines, std::string_view section, std::string_view key, std::string_view value) {
  const std::string lineEnd = lines.empty() || LineEndOf(lines[0]).empty() ? "\r\n" : std::string(LineEndOf(lines[0]));
  const std::string entry = OneLine(key) + "=" + OneLine(value);
  const Place place = Locate(lines, section, key);
  if (place.key) {
    std::string& line = lines[*place.key];
    line = entry + std::string(LineEndOf(line));
  } else if (place.section) {
    if (place.sectionEnd == lines.size()) EndLine(lines, lineEnd);
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place.sectionEnd), entry + lineEnd);
  } else {
    EndLine(lines, lineEnd);
    lines.push_back("[" + OneLine(section) + "]" + lineEnd);
    lines.push_back(entry + lineEnd);
  }
}

}  // namespace

ProfileText::ProfileText(const std::string& text) : lines_(LinesOf(text)) {}

std::string ProfileText::Get(std::string_view section, std::string_view key, std::string_view defaultValue,
                             std::size_t limit) const {
  const Place place = Locate(lines_, section, key);
  if (!place.key) return std::string(defaultValue.substr(0, limit));
  const std::string_view line = WithoutLineEnd(lines_[*place.key]);
  std::string_view value = Blankless(line.substr(line.find('=') + 1));
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front()) {
    value = value.substr(1, value.size() - 2);
  }
  return std::string(value.substr(0, limit));
}

ProfileText ProfileFile::Read() const {
  return ProfileText(LockedText(path_, LockedText::Purpose::Reading, links_).Read().value_or(std::string()));
}

bool ProfileFile::Put(std::string_view section, const std::vector<Entry>& entries) {
  if (Edit(section, entries)) return true;
  for (const Entry& entry : entries) {
    if (!logFailure_) break;
    logFailure_("[" + std::string(section) + "] " + std::string(entry.key) + " could not be saved in " +
                TextOfPath(path_));
  }
  return false;
}

bool ProfileFile::Edit(std::string_view section, const std::vector<Entry>& entries) {
  LockedText file(path_, LockedText::Purpose::Editing, links_);
  const std::optional<std::string> before = file.Read();
  if (before) {
    std::vector<std::string> lines = LinesOf(*before);
    for (const Entry& entry : entries) PutEntry(lines, section, entry.key, entry.value);
    const std::string after = TextOf(lines);
    if (after == *before || file.Replace(after)) return true;
  }
  failure_ = file.Failure();
  return false;
}

}  // namespace lantos
