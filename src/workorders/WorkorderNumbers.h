#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_set>

#include "frame/Environment.h"

namespace lantos {

// Which numbers work orders have already. New tags stand at the ends of their files with ever higher numbers, so the
// last one of each tells in one read whether a number may be among them; only then, when the counter has fallen behind,
// are all tags looked at. A text that bears the number takes it too. A file that can't be read knows of no number.
class WorkorderNumbers {
 public:
  explicit WorkorderNumbers(Environment& environment) : environment_(environment) {}

  bool IsTaken(std::int32_t number);

 private:
  bool MayBeInTags(std::int32_t number);
  template <class Tag>
  std::optional<std::int32_t> LastIn(std::string_view file);
  template <class Tag>
  void AddAllOf(std::string_view file);

  Environment& environment_;
  std::optional<std::unordered_set<std::int32_t>> all_;  // once they were looked at
};

}  // namespace lantos
