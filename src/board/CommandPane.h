#pragma once

#include "ui/Form.h"

namespace lantos {

enum class View { Week, Day, Detail };

// The column of buttons. What each does stands in BoardCommands.
class CommandPane {
 public:
  explicit CommandPane(ui::Form& form);

 private:
  ui::Form& form_;

 public:
  ui::Frame frameCommands{form_, "frameCommands"};
  ui::Button cmdWeekView{form_, "cmdWeekView", "&Week View"};
  ui::Button cmdDayView{form_, "cmdDayView", "&Day View"};
  ui::Button cmdDetailView{form_, "cmdDetailView", "D&etail View"};
  ui::Button cmdNewEstimate{form_, "cmdNewEstimate", "&New Estimate"};
  ui::Button cmdPrintEstimate{form_, "cmdPrintEstimate", "&Print Estimate"};
  ui::Button cmdPrintWorksheet{form_, "cmdPrintWorksheet", "Print Wor&ksheet"};
  ui::Button cmdConvert{form_, "cmdConvert", "Convert &to WO"};
  ui::Button cmdReschedule{form_, "cmdReschedule", "&Reschedule"};
  ui::Button cmdChangeStatus{form_, "cmdChangeStatus", "Chan&ge Status"};
  ui::Button cmdFind{form_, "cmdFind", "F&ind"};
  ui::Button cmdWOHistory{form_, "cmdWOHistory", "WO Histor&y"};
  ui::Button cmdTechHours{form_, "cmdTechHours", "Tech Hours"};
  ui::Button cmdEstimateNotes{form_, "cmdEstimateNotes", "N&otes"};
  ui::Button cmdEstimateSublets{form_, "cmdEstimateSublets", "Su&blets"};
  ui::Button cmdEstimateWaste{form_, "cmdEstimateWaste", "W&aste"};
  ui::Button cmdEstimateChecklist{form_, "cmdEstimateChecklist", "Check&list"};

  // The button of the view on show is bold.
  void ShowView(View view);
  // A button whose screen has something to show stands out.
  static void Mark(ui::Button& button, bool marked);
};

}  // namespace lantos
