#include "estimatedb/engine/ColumnList.h"

#include <utility>

#include "frame/Text.h"

namespace lantos {

namespace {

// Setting the bit that tells the cases apart makes "Status" and "STATUS" the same; what else it makes the same is
// sorted out by the comparison that follows a hit.
std::uint32_t MarkOf(std::string_view name) {
  std::uint32_t mark = 2166136261U;
  for (const char c : name) mark = (mark ^ (static_cast<unsigned char>(c) | 0x20U)) * 16777619U;
  return mark;
}

}  // namespace

ColumnList::ColumnList(std::vector<std::string> names, std::vector<ColumnType> types)
    : names_(std::move(names)), types_(std::move(types)) {
  marks_.reserve(names_.size());
  for (const std::string& name : names_) marks_.push_back(MarkOf(name));
}

std::size_t ColumnList::Find(std::string_view name) const {
  const std::uint32_t mark = MarkOf(name);
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    if (marks_[i] == mark && (names_[i] == name || EqualsIgnoringCase(names_[i], name))) return i;
  }
  return kNone;
}

ColumnType ColumnList::TypeOf(std::size_t index) const {
  return index < types_.size() ? types_[index] : ColumnType::Other;
}

}  // namespace lantos
