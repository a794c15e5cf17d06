#include "board/KeptChoice.h"

#include <algorithm>
#include <utility>

namespace lantos {

KeptChoice::KeptChoice(ui::ListBox& list) : list_(list), isChosen_(list.ListIndex() >= 0) {
  if (!isChosen_) return;
  data_ = list.ItemData(list.ListIndex());
  behind_ = list.ListIndex() - list.FindData(data_);
  if (!list.MultiSelect()) return;
  for (const ui::ListRow& row : list.Rows()) {
    if (row.selected) texts_.push_back(row.text);
  }
}

void KeptChoice::Restore() {
  if (!isChosen_) return;
  const auto click = std::exchange(list_.OnClick, nullptr);
  list_.MultiSelect() ? SelectSeveral() : SelectOne();
  list_.OnClick = click;
}

void KeptChoice::SelectOne() {
  const int first = list_.FindData(data_);
  if (first < 0) return;
  const int row = first + behind_;
  const bool isSame = row < list_.ListCount() && list_.ItemData(row) == data_;
  list_.SetListIndex(isSame ? row : first);
}

void KeptChoice::SelectSeveral() {
  std::vector<int> rows;
  for (int row = 0; row < list_.ListCount(); ++row) {
    if (std::find(texts_.begin(), texts_.end(), list_.List(row)) != texts_.end()) rows.push_back(row);
  }
  list_.DoSelectRows(rows);
}

}  // namespace lantos
