#pragma once

#include <string>
#include <vector>

#include "board/BoardState.h"
#include "estimatedb/modEstimates.h"
#include "records/Customers.h"
#include "ui/Form.h"

namespace lantos {

// The day view: everything of one day in one list, in the order that was chosen, with or without the labor.
class DayPane {
 public:
  explicit DayPane(ui::Form& form);

 private:
  ui::Form& form_;

 public:
  ui::Frame frameDayView{form_, "frameDayView"};
  ui::Frame frameDay{form_, "frameDay"};
  ui::ListBox List2{form_, "List2"};
  ui::Label lblDayComments{form_, "lblDayComments"};
  ui::CheckBox cbShowLabor{form_, "cbShowLabor", "Incl&ude Labor"};
  ui::ControlArray<ui::OptionButton, 4> optDaySortBy{form_, "optDaySortBy"};
  ui::Button cmdPrintDay{form_, "cmdPrintDay", "Print Day"};

  // The frame's tag holds the date.
  void NameDay(DaySerial day);
  // The columns that the chosen order sorts by.
  std::string_view SortOrder() const;
  void AddLines(const Estimate& estimate, const CustomerRecord* customer, std::string_view word,
                const std::vector<std::string>& laborLines);
  // The first line of an estimate, if it is listed.
  void RefreshMainLine(const Estimate& estimate, const CustomerRecord* customer);
  // Its status line. The selected estimate's is put in anew, one that isn't selected where it tells something else.
  void RefreshStatus(const Estimate& estimate, const std::string& word);
};

}  // namespace lantos
