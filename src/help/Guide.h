#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lantos {

// A heading of the guide with what stands below it, to be read on the screen.
struct GuidePage {
  std::string title;
  std::string anchor;  // by which links name it: "when-a-file-is-locked"
  int level = 1;       // 1: the guide itself, 2 a chapter, 3 a part of one
  std::vector<std::string> forms;
  std::string text;  // Markdown without pictures, which show what is behind the window anyway
};

// The guide, page by page; the first is its contents.
class Guide {
 public:
  // Markdown in UTF-8. Headings of one to three signs begin pages; "<!-- frmFind frmTechHours -->" above one says which
  // screens the page is about.
  explicit Guide(std::string_view markdown);

  const std::vector<GuidePage>& Pages() const { return pages_; }
  std::optional<std::size_t> PageOf(std::string_view form) const;
  std::optional<std::size_t> PageAt(std::string_view anchor) const;
  // The first page behind this one that has the words, without regard to case, and round to the page itself.
  std::optional<std::size_t> Find(std::string_view words, std::size_t behind) const;

 private:
  void AddContents();

  std::vector<GuidePage> pages_;
};

// The guide that this program came with. It is part of the program, so that it is there wherever that runs and tells of
// this version; its pages come into memory when they are asked for.
std::string_view GuideText();

}  // namespace lantos
