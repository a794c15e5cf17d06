#include "board/CommandPane.h"

namespace lantos {

namespace {

constexpr int kPlainPoints = 8;
constexpr int kMarkedPoints = 10;

}  // namespace

CommandPane::CommandPane(ui::Form& form) : form_(form) {
  frameCommands.SetSpokenName("Commands");
  frameCommands.Holds(cmdWeekView, cmdDayView, cmdDetailView, cmdNewEstimate, cmdPrintEstimate, cmdPrintWorksheet,
                      cmdConvert, cmdReschedule, cmdChangeStatus, cmdFind, cmdWOHistory, cmdTechHours, cmdEstimateNotes,
                      cmdEstimateSublets, cmdEstimateWaste, cmdEstimateChecklist);
}

void CommandPane::ShowView(View view) {
  cmdWeekView.SetBold(view == View::Week);
  cmdDayView.SetBold(view == View::Day);
  cmdDetailView.SetBold(view == View::Detail);
}

void CommandPane::Mark(ui::Button& button, bool marked) {
  button.SetBold(marked);
  button.SetFontSize(marked ? kMarkedPoints : kPlainPoints);
}

}  // namespace lantos
