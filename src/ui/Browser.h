#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/Control.h"

namespace lantos::ui {

// A page of Markdown to be read, with links. One of the links can be marked, and is followed by Enter.
class Browser : public Control {
 public:
  struct Link {
    std::string text;
    std::string target;
    bool operator==(const Link&) const = default;
  };

  using Control::Control;
  std::string_view Type() const override { return "Browser"; }
  bool TakesFocus() const override { return true; }
  const std::string& Text() const { return text_; }
  void SetText(std::string markdown);  // from its beginning, with no link marked
  const std::vector<Link>& Links() const { return links_; }
  int MarkedLink() const { return markedLink_; }  // -1: none
  void MarkLink(int link);
  // What is shown in colour wherever it stands, without regard to case; empty: nothing.
  const std::string& Sought() const { return sought_; }
  void SetSought(std::string text);

  std::function<void(const std::string& target)> OnFollow;
  void DoFollow(const std::string& target);
  // Tab and Shift+Tab go from link to link and leave the page at its last and first one, Enter follows the marked one.
  // True for these.
  bool DoKey(const KeyPress& key);

 private:
  std::string text_;
  std::vector<Link> links_;
  int markedLink_ = -1;
  std::string sought_;
};

// The links of a page, in their order; pictures are none.
std::vector<Browser::Link> LinksIn(std::string_view markdown);

}  // namespace lantos::ui
