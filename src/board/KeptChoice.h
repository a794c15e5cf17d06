#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ui/Controls.h"

namespace lantos {

// What is selected in a list, and how far it is scrolled, over a time in which its rows are made anew: the row that
// belongs to the same number, as far behind the number's first row as it was; where several can be selected, those that
// read the same. A list that is scrolled has the same row at its upper edge. Nothing is clicked by it. The list
// outlives it.
class KeptChoice {
 public:
  explicit KeptChoice(ui::ListBox& list);
  // Rows that are gone aren't selected. Where the row at the upper edge is gone, the one in its place is there.
  void Restore();

 private:
  // A row by the number that it belongs to, and how far behind the number's first row it is. A row without a number
  // belongs to that above it.
  struct Row {
    std::int32_t data = 0;
    int behind = 0;
  };
  Row RowAt(int row) const;
  // -1: gone with its number.
  int Find(const Row& row) const;
  void SelectSeveral();

  ui::ListBox& list_;
  bool isChosen_;
  Row chosen_;
  int top_;  // 0: not scrolled
  Row atTop_;
  std::vector<std::string> texts_;
};

}  // namespace lantos
