#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ui/Controls.h"

namespace lantos {

// What is selected in a list, over a time in which its rows are made anew: the row that belongs to the same number, as
// far behind the number's first row as it was; where several can be selected, those that read the same. Nothing is
// clicked by it. The list outlives it.
class KeptChoice {
 public:
  explicit KeptChoice(ui::ListBox& list);
  // Rows that are gone aren't selected.
  void Restore();

 private:
  void SelectOne();
  void SelectSeveral();

  ui::ListBox& list_;
  bool isChosen_;
  std::int32_t data_ = 0;
  int behind_ = 0;
  std::vector<std::string> texts_;
};

}  // namespace lantos
