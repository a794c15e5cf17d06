#pragma once

#include <optional>
#include <string>

#include "board/BoardState.h"
#include "estimatedb/modEstimates.h"
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
  ui::ControlArray<ui::Label, kWeekdays> lblWeekMark{form_, "lblWeekMark"};
  ui::ControlArray<ui::Label, kWeekdays> lblWeekHours{form_, "lblWeekHours"};
  ui::Label lblWeekComment{form_, "lblWeekComment"};

  // The panels' tags hold their dates.
  void NameDays(const BoardState& state);
  // The panel of the day that a new estimate is booked on.
  void MarkDay(const BoardState& state);
  // What the panel's colour tells, in words and numbers.
  void ShowHours(const BoardState& state, std::size_t weekday);
  void ShowComments(const DayCapacity& capacity);
  void AddLines(std::size_t weekday, std::int32_t estimate, const std::string& word, const std::string& customer);
  bool Lists(std::size_t weekday, std::int32_t estimate) const { return List1[weekday].FindData(estimate) >= 0; }
  // The estimate of the row selected in a panel, if there is one.
  std::optional<std::int32_t> SelectedEstimate(std::size_t weekday) const;
  // The customer's name in the second line of an estimate, if it is listed.
  void RefreshName(std::int32_t estimate, const std::string& customer);
  // The status word in the first line of an estimate. Scheduled is told by a blank, unless the estimate is selected.
  void RefreshStatus(const Estimate& estimate, const std::string& word);
};

}  // namespace lantos
