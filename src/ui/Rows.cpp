#include <algorithm>
#include <stdexcept>

#include "frame/Text.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace lantos::ui {

void RowControl::SetListIndex(int row) {
  if (row < -1 || row >= ListCount()) throw std::out_of_range(FullName() + ": no row " + std::to_string(row));
  if (row == -1 && listIndex_ == -1) return;
  listIndex_ = row;
  RowChosen();
  Changed(Aspect::Selection);
  if (row >= 0) FireClick();
}

void RowControl::SetList(int row, std::string text) {
  rows_.at(static_cast<std::size_t>(row)).text = std::move(text);
  ForgetWidths();
  Changed(Aspect::Rows);
}

int RowControl::AddItem(std::string text, std::int32_t data) {
  rows_.push_back({std::move(text), data, false, false});
  Changed(Aspect::Rows);
  return ListCount() - 1;
}

void RowControl::InsertItem(int row, std::string text, std::int32_t data) {
  rows_.insert(rows_.begin() + std::clamp(row, 0, ListCount()), {std::move(text), data, false, false});
  if (listIndex_ >= row) ++listIndex_;
  if (extendFrom_ >= row) ++extendFrom_;
  ForgetWidths();
  Changed(Aspect::Rows);
}

void RowControl::RemoveItem(int row) {
  if (row < 0 || row >= ListCount()) throw std::out_of_range(FullName() + ": no row " + std::to_string(row));
  rows_.erase(rows_.begin() + row);
  ForgetWidths();
  if (extendFrom_ == row) {
    extendFrom_ = -1;
  } else if (extendFrom_ > row) {
    --extendFrom_;
  }
  if (listIndex_ == row) {
    listIndex_ = -1;
    RowLost();
  } else if (listIndex_ > row) {
    --listIndex_;
  }
  Changed(Aspect::Rows);
}

void RowControl::Clear() {
  rows_.clear();
  listIndex_ = -1;
  extendFrom_ = -1;
  RowLost();
  ForgetWidths();
  Changed(Aspect::Rows);
}

int RowControl::FindText(std::string_view text) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const ListRow& row) { return row.text == text; });
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

int RowControl::FindData(std::int32_t data) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const ListRow& row) { return row.data == data; });
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

void RowControl::DoSelect(int row) {
  Owner().Run([&] { SetListIndex(row); });
}

void ListBox::SetChecked(int row, bool checked) {
  ListRow& item = rows_.at(static_cast<std::size_t>(row));
  if (item.checked == checked) return;
  item.checked = checked;
  Changed(Aspect::Rows);
  if (OnItemCheck) OnItemCheck(row);
}

bool ListBox::Selected(int row) const {
  return multiSelect_ ? rows_.at(static_cast<std::size_t>(row)).selected : row == listIndex_;
}

void ListBox::SelectRow(int row) {
  for (ListRow& each : rows_) each.selected = false;
  rows_.at(static_cast<std::size_t>(row)).selected = multiSelect_;
  extendFrom_ = row;
  SetListIndex(row);
}

void ListBox::SetHorizontalExtent(int pixels) {
  if (horizontalExtent_ == pixels) return;
  horizontalExtent_ = pixels;
  Changed(Aspect::Look);
}

int ListBox::Widest(const std::function<int(const std::string&)>& measure) {
  if (measuredRows_ == 0) widest_ = 0;
  for (; measuredRows_ < rows_.size(); ++measuredRows_) {
    widest_ = std::max(widest_, measure(rows_[measuredRows_].text));
  }
  return widest_;
}

void ListBox::DoSelectRows(const std::vector<int>& rows) {
  extendFrom_ = rows.empty() ? -1 : rows.front();
  Owner().Run([&] {
    for (ListRow& row : rows_) row.selected = false;
    for (int row : rows) rows_.at(static_cast<std::size_t>(row)).selected = true;
    listIndex_ = rows.empty() ? -1 : rows.back();
    Changed(Aspect::Selection);
    FireClick();
  });
}

void ListBox::DoExtendTo(int row) {
  const int from = std::clamp(extendFrom_ < 0 ? std::max(listIndex_, 0) : extendFrom_, 0, ListCount() - 1);
  std::vector<int> rows;
  for (int each = from; each != row; each += row < from ? -1 : 1) rows.push_back(each);
  rows.push_back(row);  // the current one is the last
  DoSelectRows(rows);
}

void ListBox::DoCheck(int row, bool checked) {
  Owner().Run([&] {
    SetChecked(row, checked);
    SetListIndex(row);  // the hand that ticks a row is on it
  });
}

void ComboBox::RowChosen() {
  text_ = listIndex_ < 0 ? std::string() : rows_[static_cast<std::size_t>(listIndex_)].text;
  TextWasSet(HasFocus());
  if (HasFocus() && listIndex_ >= 0) MarkAll();
}

void ComboBox::SetText(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
  TextWasSet(HasFocus());
  listIndex_ = FindText(text_);
  Changed(Aspect::Text);
  if (OnChange) OnChange();
}

void ComboBox::Drop(std::optional<int> row) {
  if (droppedRow_ == row) return;
  droppedRow_ = row;
  Changed(Aspect::Dropped);
}

void ComboBox::PutTyped(std::string shown) {
  if (text_ == shown) return;
  text_ = std::move(shown);
  listIndex_ = FindText(text_);
  Changed(Aspect::Text);
  if (OnChange) OnChange();
}

void ComboBox::DoType(std::string_view text) {
  Owner().Run([&] {
    SetText("");
    DoInsert(text);
  });
}

void ComboBox::DoInsert(std::string_view text) {
  Owner().Run([&] {
    for (const char character : text) TypeCharacter(character);
  });
}

void ComboBox::DoEdit(std::string text) {
  if (text_ == text) return;
  Owner().Run([&] { SetText(std::move(text)); });
}

void Grid::SetColumns(std::vector<GridColumn> columns) {
  columns_ = std::move(columns);
  Changed(Aspect::Rows);
}

void Grid::SetRows(std::vector<GridRow> rows) {
  rows_ = std::move(rows);
  makeRow_ = nullptr;
  row_ = -1;
  Changed(Aspect::Rows);
}

void Grid::SetRows(int count, MakeRow makeRow) {
  rows_.clear();
  makeRow_ = std::move(makeRow);
  madeRows_ = count;
  row_ = -1;
  Changed(Aspect::Rows);
}

GridRow Grid::RowAt(int row) const {
  if (row < 0 || row >= RowCount()) throw std::out_of_range(FullName() + ": no row " + std::to_string(row));
  return makeRow_ ? makeRow_(row) : rows_[static_cast<std::size_t>(row)];
}

void Grid::SetRow(int row) {
  if (row < -1 || row >= RowCount()) throw std::out_of_range(FullName() + ": no row " + std::to_string(row));
  if (row_ == row) return;
  row_ = row;
  Changed(Aspect::Selection);
  if (OnRowChange) OnRowChange();
}

void Grid::SetSortedBy(std::string sort) {
  sortedBy_ = std::move(sort);
  Changed(Aspect::Rows);
}

void Grid::DoSelect(int row) {
  Owner().Run([&] {
    SetRow(row);
    FireClick();
  });
}

void Grid::DoHeadClick(int column) {
  Owner().Run([&] {
    if (OnHeadClick) OnHeadClick(column);
  });
}

}  // namespace lantos::ui
