#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ui/Controls.h"

namespace lantos {

// Which rows carry their line's number as item data; the others have 0.
enum class NumberAt { FirstRow, EveryRow };

// The rows of a list in which each line has one or more of them: one behind the other in the order of their numbers,
// whatever their texts. Nobody else adds rows to the list or takes them away.
class NumberedRows {
 public:
  explicit NumberedRows(ui::ListBox& list, NumberAt numberAt = NumberAt::FirstRow) : list_(list), numberAt_(numberAt) {}

  void Clear();
  // In place of the rows that the number has.
  void Put(std::int32_t number, std::vector<std::string> rows);
  void Remove(std::int32_t number);
  // The first row of the number becomes the current one, which fires its click. Nothing when the number has none.
  void Select(std::int32_t number);
  // The line whose row, of several, is the current one.
  std::optional<std::int32_t> Selected() const;

 private:
  struct Group {
    std::int32_t number;
    int rows;
  };
  struct Place {
    std::size_t group;  // the first that has the number or a higher one
    int row;            // where it begins
    bool isThere;
  };
  Place Find(std::int32_t number) const;

  ui::ListBox& list_;
  NumberAt numberAt_;
  std::vector<Group> groups_;  // in the order of the rows
};

}  // namespace lantos
