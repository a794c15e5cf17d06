#include "board/KeptChoice.h"

#include <algorithm>
#include <utility>

namespace lantos {

KeptChoice::KeptChoice(ui::ListBox& list)
    : list_(list), isChosen_(list.ListIndex() >= 0), top_(list.Peer() != nullptr ? list.Peer()->TopRow() : 0) {
  if (top_ >= list.ListCount()) top_ = 0;
  if (top_ > 0) atTop_ = RowAt(top_);
  if (!isChosen_) return;
  chosen_ = RowAt(list.ListIndex());
  if (!list.MultiSelect()) return;
  for (const ui::ListRow& row : list.Rows()) {
    if (row.selected) texts_.push_back(row.text);
  }
}

void KeptChoice::Restore() {
  if (isChosen_) {
    const auto click = std::exchange(list_.OnClick, nullptr);
    if (list_.MultiSelect()) {
      SelectSeveral();
    } else if (const int row = Find(chosen_); row >= 0) {
      list_.SetListIndex(row);
    }
    list_.OnClick = click;
  }
  if (list_.Peer() == nullptr) return;
  const int top = top_ > 0 ? Find(atTop_) : 0;
  list_.Peer()->KeepTopRow(top >= 0 ? top : std::min(top_, list_.ListCount() - 1));
}

KeptChoice::Row KeptChoice::RowAt(int row) const {
  int owner = row;
  while (owner > 0 && list_.ItemData(owner) == 0) --owner;
  const std::int32_t data = list_.ItemData(owner);
  return {data, row - list_.FindData(data)};
}

int KeptChoice::Find(const Row& row) const {
  const int first = list_.FindData(row.data);
  const int wanted = first + row.behind;
  if (first < 0 || wanted >= list_.ListCount()) return first;
  const std::int32_t data = list_.ItemData(wanted);
  return data == row.data || data == 0 ? wanted : first;
}

void KeptChoice::SelectSeveral() {
  std::vector<int> rows;
  for (int row = 0; row < list_.ListCount(); ++row) {
    if (std::find(texts_.begin(), texts_.end(), list_.List(row)) != texts_.end()) rows.push_back(row);
  }
  list_.DoSelectRows(rows);
}

}  // namespace lantos
