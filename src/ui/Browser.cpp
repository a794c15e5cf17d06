#include "ui/Browser.h"

#include "ui/Form.h"

namespace lantos::ui {

std::vector<Browser::Link> LinksIn(std::string_view markdown) {
  std::vector<Browser::Link> links;
  for (std::size_t middle = markdown.find("]("); middle != std::string_view::npos;
       middle = markdown.find("](", middle + 1)) {
    const std::size_t open = markdown.rfind('[', middle);
    const std::size_t close = markdown.find(')', middle);
    if (open == std::string_view::npos || close == std::string_view::npos) continue;
    if (open > 0 && markdown[open - 1] == '!') continue;
    links.push_back({std::string(markdown.substr(open + 1, middle - open - 1)),
                     std::string(markdown.substr(middle + 2, close - middle - 2))});
  }
  return links;
}

void Browser::SetText(std::string markdown) {
  text_ = std::move(markdown);
  links_ = LinksIn(text_);
  markedLink_ = -1;
  Changed(Aspect::Text);
}

void Browser::MarkLink(int link) {
  if (link == markedLink_ || link >= static_cast<int>(links_.size())) return;
  markedLink_ = link;
  Changed(Aspect::Selection);
}

void Browser::SetSought(std::string text) {
  if (sought_ == text) return;
  sought_ = std::move(text);
  Changed(Aspect::Value);
}

void Browser::DoFollow(const std::string& target) {
  Owner().Run([&] {
    if (OnFollow) OnFollow(target);
  });
}

bool Browser::DoKey(const KeyPress& key) {
  if (key.Is("Enter")) {
    // A copy: the page that it stands on goes.
    if (markedLink_ >= 0) DoFollow(std::string(links_[static_cast<std::size_t>(markedLink_)].target));
    return true;
  }
  if (key.cleared || key.key != "Tab" || key.alt || key.control) return false;
  const int last = static_cast<int>(links_.size()) - 1;
  const int next = key.shift ? markedLink_ - 1 : markedLink_ + 1;
  if (next < 0 || next > last) return false;
  MarkLink(next);
  return true;
}

}  // namespace lantos::ui
