#pragma once

#include <string>
#include <string_view>

#include "frame/PlainWords.h"

namespace lantos {

// The person has answered Cancel where a routine can't go on without what was waited for: ends the event, and says
// what wasn't done. Whoever gave it up knows the cause from the box before.
class GivenUp : public WordedError {
 public:
  explicit GivenUp(const std::string& text) : WordedError(text, text) {}
};

}  // namespace lantos
