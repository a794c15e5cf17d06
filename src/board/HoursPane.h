#pragma once

#include "board/BoardState.h"
#include "ui/Form.h"

namespace lantos {

// The hours of one day: available, scheduled, the difference and its word, in the colour of the day.
class HoursPane {
 public:
  explicit HoursPane(ui::Form& form) : form_(form) { Frame1.Holds(lblDate, lblAvail, lblSched, lblDiff, lblStatus); }

 private:
  ui::Form& form_;

 public:
  ui::Frame Frame1{form_, "Frame1", "Hours"};
  ui::Label lblDate{form_, "lblDate"};
  ui::Label lblAvail{form_, "lblAvail"};
  ui::Label lblSched{form_, "lblSched"};
  ui::Label lblDiff{form_, "lblDiff"};
  ui::Label lblStatus{form_, "lblStatus"};

  void ShowHours(const BoardState& state, std::size_t weekday);
  // Whose hours are shown; 0 before the first.
  DaySerial Day() const { return day_; }

 private:
  DaySerial day_ = 0;
};

}  // namespace lantos
