#pragma once

#include <algorithm>
#include <map>
#include <set>

#include "contents/AmountFields.h"
#include "contents/NumberedRows.h"

namespace lantos {

// Lines with numbers of their own, and their rows in a list.
template <class Line>
class NumberedList {
 public:
  using MakeRows = std::vector<std::string> (*)(const Line&);  // one at least

  NumberedList(ui::ListBox& list, MakeRows makeRows, NumberAt numberAt = NumberAt::FirstRow,
               std::int32_t firstNumber = 1)
      : rows_(list, numberAt), makeRows_(makeRows), highestAtStart_(firstNumber - 1) {}

  const std::map<std::int32_t, Line>& Lines() const { return lines_; }
  bool Contains(std::int32_t number) const { return lines_.contains(number); }
  const Line& operator[](std::int32_t number) const { return lines_.at(number); }

  // Behind the highest that there has been: one that was removed isn't given again. std::overflow_error behind the last
  // that there can be.
  std::int32_t NextNumber() const { return Sum(highest_, 1); }
  // The number has been given, whether its line comes to stand in the list or not.
  void Reserve(std::int32_t number) { highest_ = std::max(highest_, number); }

  // Whether others have been given numbers between the list's and this one.
  bool IsBehindUnseen(std::int32_t number) const { return number - 1 > highest_; }

  // In place of the line that has the number.
  void Put(std::int32_t number, Line line) {
    Reserve(number);
    offScreen_.erase(number);
    rows_.Put(number, makeRows_(line));
    lines_.insert_or_assign(number, std::move(line));
  }
  void Remove(std::int32_t number) {
    rows_.Remove(number);
    lines_.erase(number);
  }
  // Lines and rows; the numbers that were given stay given. What they number is off the screen alone.
  void Clear() {
    for (const auto& [number, line] : lines_) offScreen_.insert(number);
    lines_.clear();
    rows_.Clear();
  }
  bool IsOffScreen(std::int32_t number) const { return offScreen_.contains(number); }
  // For the lines of something else, or for the same ones read again.
  void StartAnew() {
    Clear();
    offScreen_.clear();
    highest_ = highestAtStart_;
  }

  void Select(std::int32_t number) { rows_.Select(number); }
  // The line of the current row, whichever of its rows that is.
  std::optional<std::int32_t> Selected() const { return rows_.Selected(); }

 private:
  std::map<std::int32_t, Line> lines_;
  std::set<std::int32_t> offScreen_;
  NumberedRows rows_;
  MakeRows makeRows_;
  std::int32_t highestAtStart_;
  std::int32_t highest_ = highestAtStart_;
};

}  // namespace lantos
