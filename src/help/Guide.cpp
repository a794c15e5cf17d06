#include "help/Guide.h"

#include <algorithm>
#include <cctype>
#include <sstream>
#include <utility>

#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kFormsBegin = "<!--";
constexpr std::string_view kFormsEnd = "-->";
constexpr std::string_view kPicture = "![";
constexpr std::size_t kLevels = 3;

// 0: the line is no heading.
std::size_t LevelOf(std::string_view line) {
  const std::size_t signs = line.find_first_not_of('#');
  const bool isHeading = signs != std::string_view::npos && signs > 0 && signs <= kLevels && line[signs] == ' ';
  return isHeading ? signs : 0;
}

std::string AnchorOf(std::string_view title) {
  std::string anchor;
  for (const char c : title) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_') anchor += ToLower(std::string(1, c));
    if (c == ' ') anchor += '-';
  }
  return anchor;
}

std::vector<std::string> WordsIn(std::string_view line) {
  std::istringstream words{std::string(line)};
  std::vector<std::string> found;
  for (std::string word; words >> word;) found.push_back(word);
  return found;
}

std::vector<std::string> FormsIn(std::string_view line) {
  const std::size_t end = line.find(kFormsEnd);
  if (!line.starts_with(kFormsBegin) || end == std::string_view::npos) return {};
  return WordsIn(line.substr(kFormsBegin.size(), end - kFormsBegin.size()));
}

std::string LinkTo(const GuidePage& page) { return "[" + page.title + "](#" + page.anchor + ")"; }

// What stands between two empty lines, unless a picture is in it.
void AddParagraph(GuidePage& page, std::string& paragraph) {
  if (!paragraph.empty() && !Contains(paragraph, kPicture)) page.text += paragraph + "\n";
  paragraph.clear();
}

}  // namespace

Guide::Guide(std::string_view markdown) {
  std::istringstream lines(FromUtf8(markdown));
  std::vector<std::string> forms;
  std::string paragraph;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t level = LevelOf(line);
    if (level > 0) {
      if (!pages_.empty()) AddParagraph(pages_.back(), paragraph);
      const std::string title = line.substr(level + 1);
      pages_.push_back({title, AnchorOf(title), static_cast<int>(level), std::exchange(forms, {}), ""});
      pages_.back().text = "# " + title + "\n\n";
    } else if (line.starts_with(kFormsBegin)) {
      forms = FormsIn(line);
    } else if (!line.empty()) {
      paragraph += line + "\n";
    } else if (!pages_.empty()) {
      AddParagraph(pages_.back(), paragraph);
    }
  }
  if (!pages_.empty()) AddParagraph(pages_.back(), paragraph);
  AddContents();
}

// All pages in the first one, and the parts of a chapter in it.
void Guide::AddContents() {
  for (std::size_t i = 1; i < pages_.size(); ++i) {
    const bool isPart = pages_[i].level > 2;
    pages_.front().text += (isPart ? "  - " : "- ") + LinkTo(pages_[i]) + "\n";
    if (!isPart) continue;
    std::size_t chapter = i;
    while (pages_[chapter].level > 2) --chapter;
    pages_[chapter].text += "- " + LinkTo(pages_[i]) + "\n";
  }
}

std::optional<std::size_t> Guide::PageOf(std::string_view form) const {
  const auto page = std::find_if(pages_.begin(), pages_.end(), [&](const GuidePage& each) {
    return std::find(each.forms.begin(), each.forms.end(), form) != each.forms.end();
  });
  if (page == pages_.end()) return std::nullopt;
  return static_cast<std::size_t>(page - pages_.begin());
}

std::optional<std::size_t> Guide::PageAt(std::string_view anchor) const {
  const auto page = std::find_if(pages_.begin(), pages_.end(), [&](const GuidePage& p) { return p.anchor == anchor; });
  if (page == pages_.end()) return std::nullopt;
  return static_cast<std::size_t>(page - pages_.begin());
}

std::optional<std::size_t> Guide::Find(std::string_view words, std::size_t behind) const {
  for (std::size_t i = 1; i <= pages_.size(); ++i) {
    const std::size_t page = (behind + i) % pages_.size();
    if (page > 0 && ContainsIgnoringCase(pages_[page].text, words)) return page;
  }
  return std::nullopt;
}

std::string_view GuideText() {
  static constexpr std::string_view kTexts[] = {
#include "GuideText.inc"
  };
  return kTexts[0];
}

}  // namespace lantos
