#include "contents/NumberedRows.h"

namespace lantos {

void NumberedRows::Clear() {
  groups_.clear();
  list_.Clear();
}

void NumberedRows::Put(std::int32_t number, std::vector<std::string> rows) {
  Remove(number);
  const Place place = Find(number);
  int row = place.row;
  for (std::string& text : rows) {
    const bool carriesNumber = row == place.row || numberAt_ == NumberAt::EveryRow;
    list_.InsertItem(row, std::move(text), carriesNumber ? number : 0);
    ++row;
  }
  groups_.insert(groups_.begin() + static_cast<std::ptrdiff_t>(place.group), {number, static_cast<int>(rows.size())});
}

void NumberedRows::Remove(std::int32_t number) {
  const Place place = Find(number);
  if (!place.isThere) return;
  for (int row = 0; row < groups_[place.group].rows; ++row) list_.RemoveItem(place.row);
  groups_.erase(groups_.begin() + static_cast<std::ptrdiff_t>(place.group));
}

void NumberedRows::Select(std::int32_t number) {
  const Place place = Find(number);
  if (place.isThere) list_.SetListIndex(place.row);
}

std::optional<std::int32_t> NumberedRows::Selected() const {
  if (list_.ListIndex() < 0) return std::nullopt;
  int end = 0;
  for (const Group& group : groups_) {
    end += group.rows;
    if (list_.ListIndex() < end) return group.number;
  }
  return std::nullopt;
}

NumberedRows::Place NumberedRows::Find(std::int32_t number) const {
  Place place{0, 0, false};
  while (place.group < groups_.size() && groups_[place.group].number < number) {
    place.row += groups_[place.group].rows;
    ++place.group;
  }
  place.isThere = place.group < groups_.size() && groups_[place.group].number == number;
  return place;
}

}  // namespace lantos
