#pragma once

#include <optional>
#include <string>

#include "board/BoardState.h"
#include "ui/Form.h"

namespace lantos {

// The week view: a panel a day with two lines an estimate, and the comments of the special days below.
class WeekPane {
 public:
  explicit WeekPane(ui::Form& form);

 private:
  ui::Form& form_;

 public:
  ui::Frame frameWeekView{form_, "frameWeekView"};
  ui::ControlArray<ui::Frame, kWeekdays> frameWeek{form_, "frameWeek"};
  ui::ControlArray<ui::ListBox, kWeekdays> List1{form_, "List1"};
  ui::Label lblWeekComment{form_, "lblWeekComment"};

  // The panels' tags hold their dates.
  void NameDays(const BoardState& state);
  void ShowComments(const DayCapacity& capacity);
  void AddLines(std::size_t weekday, std::int32_t estimate, const std::string& word, const std::string& customer);
  // The estimate of the row selected in a panel, if there is one.
  std::optional<std::int32_t> SelectedEstimate(std::size_t weekday) const;
  // The status word of the estimate selected in a panel, in its first line.
  void RefreshStatus(std::size_t weekday, const std::string& word);
};

}  // namespace lantos
