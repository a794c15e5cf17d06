#pragma once

#include <string>
#include <string_view>

namespace lantos {

// A text made ready to be looked for in many short ones, without regard to case. It occurs in its own upper case, in
// its own lower case, and, when empty, everywhere.
class CaselessNeedle {
 public:
  CaselessNeedle() = default;
  explicit CaselessNeedle(std::string_view text);
  bool OccursIn(std::string_view haystack) const;
  bool IsEmpty() const { return folded_.empty(); }
  const std::string& Folded() const { return folded_; }

 private:
  std::string folded_;
};

}  // namespace lantos
