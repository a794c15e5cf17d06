#include "estimatedb/CommentMarks.h"

#include <cstddef>

namespace lantos {

namespace {

struct Mark {
  std::string_view words;
  std::size_t behind;  // characters of the number or the day
};

constexpr Mark kMarks[] = {{"Workorder # ", 6}, {"Rescheduled for ", 10}, {"Scheduled for ", 10}};

}  // namespace

std::string_view MarkIn(std::string_view comments) {
  for (const Mark& mark : kMarks) {
    if (comments.starts_with(mark.words)) return comments.substr(0, mark.words.size() + mark.behind);
  }
  return {};
}

}  // namespace lantos
