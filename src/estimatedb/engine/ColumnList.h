#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lantos {

// What a column was declared as, as far as the program tells them apart. ShortText has a width, LongText has none.
enum class ColumnType { Other, ShortText, LongText, Date };

// The columns of a statement's rows: shared by every recordset that the statement fills, so that names are taken in
// once. Names are found without regard to case; of two equal ones the first counts.
class ColumnList {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  ColumnList() = default;
  explicit ColumnList(std::vector<std::string> names, std::vector<ColumnType> types = {});

  const std::vector<std::string>& Names() const { return names_; }
  std::size_t Count() const { return names_.size(); }
  std::size_t Find(std::string_view name) const;
  ColumnType TypeOf(std::size_t index) const;

 private:
  std::vector<std::string> names_;
  std::vector<ColumnType> types_;
  std::vector<std::uint32_t> marks_;  // one for each name, equal for names that differ in case only
};

}  // namespace lantos
