#include "board/BoardCommands.h"

#include "board/Booking.h"
#include "board/Lookups.h"
#include "board/Papers.h"
#include "board/StatusByHand.h"
#include "contents/conversion/Conversion.h"
#include "contents/extras/frmEstExtras.h"
#include "contents/labor/LaborAddCanned.h"
#include "contents/labor/frmEstFollowup.h"
#include "contents/notes/EstimateChecklist.h"
#include "contents/notes/frmEstNotes.h"
#include "history/frmWOHist.h"
#include "printing/WorkorderReport.h"

namespace lantos {

namespace {

constexpr auto kDaily = DayCheck::Checked;
constexpr BoardCommand::MenuEntry kNoMenu;
constexpr BoardCommand::Missing kNothingMissing;

// The screens of what an estimate holds say it in words of their own.
constexpr BoardCommand::Missing NoneFor(const char* screen) {
  return {screen, "Must first select an estimate.", ui::Icon::None};
}
constexpr BoardCommand::Missing NoneToPrint() {
  return {"Print Estimate", "Must first select an estimate to print."};  // the title is the same for both papers
}

}  // namespace

BoardCommands::BoardCommands(const BoardParts& parts, Board& board, Booking& booking, Papers& papers,
                             StatusByHand& status, const DayRollover& rollover)
    : parts_(parts), board_(board), booking_(booking), papers_(papers), status_(status), rollover_(rollover) {
  Add(OfTheViews());
  Add(OfTheMenu());
  Add(OfTheDetail());
  for (const BoardCommand& command : commands_) {
    if (command.toolTip != nullptr) command.button->SetToolTip(command.toolTip);
    command.button->SetEnabled(command.run != nullptr);
    command.button->OnClick = [this, &command] { Run(command); };
  }
}

void BoardCommands::Add(std::vector<BoardCommand> commands) {
  for (BoardCommand& command : commands) commands_.push_back(std::move(command));
}

void BoardCommands::Run(const BoardCommand& command) {
  if (command.dayCheck == DayCheck::Checked) rollover_.CheckDayRollover();
  if (beforeEach) beforeEach();
  if (!Has(command.needs)) {
    parts_.shop.desktop.Tell(command.missing.text, command.missing.title, command.missing.icon);
    return;
  }
  command.run();
}

bool BoardCommands::Has(Needs needs) const {
  switch (needs) {
    case Needs::CurrentEstimate:
      return parts_.database.estimates.CurrentEstimate.EstimateNumber > 0;
    case Needs::EstimateOnShow:
      return parts_.detail.DisplayedEstimate() != 0;
    default:
      return true;
  }
}

std::vector<BoardCommand> BoardCommands::OfTheViews() {
  CommandPane& pane = parts_.commands;
  return {
      {&pane.cmdWeekView, kNoMenu, "Seven days at a glance", kDaily, Needs::Nothing, kNothingMissing,
       [this] { board_.ShowWeekView(); }},
      {&pane.cmdDayView, kNoMenu, "All estimates of the selected day", kDaily, Needs::Nothing, kNothingMissing,
       [this] { board_.ShowDayView(Board::DayData::Load); }},
      {&pane.cmdDetailView, kNoMenu, "The selected estimate in full, who changed it <Ctrl+T>", kDaily, Needs::Nothing,
       kNothingMissing, [this] { board_.ShowDetailView(); }},
      {&parts_.day.cmdPrintDay, kNoMenu, "The list below on paper", kDaily, Needs::Nothing, kNothingMissing,
       [this] { papers_.PrintDay(); }},
  };
}

std::vector<BoardCommand> BoardCommands::OfTheMenu() {
  CommandPane& pane = parts_.commands;
  Workbench& bench = parts_.detail.contents.bench;
  return {
      {&pane.cmdNewEstimate,
       {"mnuNewEstimate", "&New Estimate"},
       "Book an estimate on the selected day",
       kDaily,
       Needs::Nothing,
       kNothingMissing,
       [this] { booking_.NewEstimate(); }},
      // A customer who waits gets the paper, past midnight too.
      {&pane.cmdPrintEstimate,
       {"mnuPrintEstimate", "&Print Estimate"},
       "The customer's copy of the selected estimate",
       DayCheck::Unchecked,
       Needs::CurrentEstimate,
       NoneToPrint(),
       [this] { papers_.PrintEstimate(); }},
      {&pane.cmdPrintWorksheet,
       {"mnuPrintWorksheet", "Print &Worksheet"},
       "The paper that travels with the vehicle",
       kDaily,
       Needs::CurrentEstimate,
       NoneToPrint(),
       [this] { papers_.PrintWorksheet(); }},
      {&pane.cmdConvert,
       {"mnuConvertToWO", "&Convert to WO"},
       "Make the selected estimate a work order",
       kDaily,
       Needs::EstimateOnShow,
       {"Convert to WO"},
       [this] { Convert(); }},
      {&pane.cmdReschedule,
       {"mnuReschedule", "&Reschedule"},
       "Move the selected estimate to another day",
       kDaily,
       Needs::CurrentEstimate,
       {"Reschedule"},
       [this] { status_.Reschedule(); }},
      {&pane.cmdChangeStatus,
       {"mnuChangeStatus", "Change &Status"},
       "Change the status of the selected estimate",
       kDaily,
       Needs::CurrentEstimate,
       {"Change Status"},
       [this] { status_.Change(); }},
      {&pane.cmdFind,
       {"mnuFind", "&Find"},
       "Look for an estimate of a customer",
       kDaily,
       Needs::Nothing,
       kNothingMissing,
       [this] { FindEstimate(parts_, board_); }},
      {&pane.cmdWOHistory,
       {"mnuWOHistory", "WO &History"},
       "Past work orders by name, VIN or license",
       kDaily,
       Needs::Nothing,
       kNothingMissing,
       [this] { BrowseHistory(); }},
      {&pane.cmdTechHours,
       {"mnuTechHours", "&Tech Hours"},
       "Hours of each technician on the selected day",
       kDaily,
       Needs::Nothing,
       kNothingMissing,
       [this] { LookAtTechHours(parts_); }},
      {&pane.cmdEstimateNotes,
       {"mnuEstimateNotes", "Estimate N&otes"},
       nullptr,
       kDaily,
       Needs::EstimateOnShow,
       NoneFor("Estimate Notes"),
       [this] { EditNotes(); }},
      {&pane.cmdEstimateSublets,
       {"mnuEstimateSublets", "Estimate S&ublets"},
       nullptr,
       kDaily,
       Needs::EstimateOnShow,
       NoneFor("Estimate Sublets"),
       [&bench] { EstimateSublets(bench); }},
      {&pane.cmdEstimateWaste,
       {"mnuEstimateWaste", "Estimate W&aste"},
       nullptr,
       kDaily,
       Needs::EstimateOnShow,
       NoneFor("Estimate Waste"),
       [&bench] { EstimateWaste(bench); }},
      {&pane.cmdEstimateChecklist,
       {"mnuEstimateChecklist", "Estimate Check&list"},
       nullptr,
       kDaily,
       Needs::EstimateOnShow,
       NoneFor("Estimate Checklist"),
       [&bench] { EstimateChecklist(bench); }},
  };
}

std::vector<BoardCommand> BoardCommands::OfTheDetail() {
  DetailPane& pane = parts_.detail;
  Workbench& bench = pane.contents.bench;
  LaborLines& labor = pane.contents.labor;
  PartLines& parts = pane.contents.parts;
  return {
      {&pane.cmdCustomerEdit,
       kNoMenu,
       "Choose another customer and vehicle",
       kDaily,
       Needs::EstimateOnShow,
       {"Customer Edit"},
       [this] { booking_.EditCustomer(); }},
      {&pane.cmdVehicleEdit,
       kNoMenu,
       "Choose another vehicle of this customer",
       kDaily,
       Needs::EstimateOnShow,
       {"Vehicle Edit"},
       [this] { booking_.EditVehicle(); }},
      {&pane.cmdLaborAdd, kNoMenu, nullptr, kDaily, Needs::EstimateOnShow, {"Add Labor"}, [&labor] { labor.Add(); }},
      {&pane.cmdLaborAddCanned,
       kNoMenu,
       nullptr,
       kDaily,
       Needs::EstimateOnShow,
       {"Add Canned Labor"},
       [&bench, &labor, &parts] { LaborAddCanned(bench, labor, parts); }},
      {&pane.cmdLaborChange, kNoMenu, nullptr, kDaily, Needs::Nothing, kNothingMissing, [&labor] { labor.Change(); }},
      {&pane.cmdLaborRemove, kNoMenu, nullptr, kDaily, Needs::Nothing, kNothingMissing, [&labor] { labor.Remove(); }},
      {&pane.cmdLaborFollowup,
       kNoMenu,
       nullptr,
       kDaily,
       Needs::EstimateOnShow,
       {"Followups"},
       [&bench, &labor] { LaborFollowup(bench, labor); }},
      {&pane.cmdPartAdd, kNoMenu, nullptr, kDaily, Needs::EstimateOnShow, {"Add Part"}, [&parts] { parts.Add(); }},
      {&pane.cmdPartAddNonStock,
       kNoMenu,
       nullptr,
       kDaily,
       Needs::EstimateOnShow,
       {"Add Non-Stocked Part"},
       [&parts] { parts.AddNonStock(); }},
      {&pane.cmdPartChange, kNoMenu, nullptr, kDaily, Needs::Nothing, kNothingMissing, [&parts] { parts.Change(); }},
      {&pane.cmdPartRemove, kNoMenu, nullptr, kDaily, Needs::Nothing, kNothingMissing, [&parts] { parts.Remove(); }},
  };
}

void BoardCommands::BrowseHistory() {
  BrowseWorkorders(parts_.shop, [this](const Workorders& workorders) { PrintWorkorder(parts_.shop, workorders); });
}

void BoardCommands::EditNotes() {
  EstimateNotes(parts_.detail.contents.bench);
  parts_.detail.ShowNotesMark();
}

void BoardCommands::SettleHalfDone(const std::vector<std::string>& journals) { Unfinished().Settle(journals); }

HalfDone BoardCommands::Unfinished() {
  return {
      parts_.shop, parts_.detail.contents.workorders,
      [this](const BegunConversion& begun, ConversionJournal& journal) { return FinishConversion(begun, journal); }};
}

Finishing BoardCommands::FinishConversion(const BegunConversion& begun, ConversionJournal& journal) {
  DetailPane& detail = parts_.detail;
  if (!ShowEstimate(parts_, board_, begun.estimate, "Convert to WO")) return Finishing::NotPossible;
  Finishing finishing = Finishing::Ended;
  detail.frameDetailView.Owner().Run([&] {
    const ui::Hourglass hourglass(parts_.shop.desktop);
    finishing = Conversion(detail.contents.bench, detail.contents.workorders).Finish(begun, journal);
  });
  // What it has changed is shown however it ended.
  board_.LoadWeek(parts_.database.estimates.CurrentEstimate.SchedDate);
  detail.ShowEstimateDetail();
  return finishing;
}

void BoardCommands::Convert() {
  DetailPane& detail = parts_.detail;
  // One of this very estimate that was left half done comes first: a second work order would lower the stock twice.
  if (Unfinished().SettleOf(detail.DisplayedEstimate()) != HalfDone::Settled::NothingLeft) return;
  Conversion conversion(detail.contents.bench, detail.contents.workorders);
  detail.frameDetailView.Owner().Run([&] {
    const ui::Hourglass hourglass(parts_.shop.desktop);
    conversion.Run();
  });
  // What it has changed is shown however it ended.
  board_.LoadWeek(parts_.database.estimates.CurrentEstimate.SchedDate);
  detail.ShowEstimateDetail();
  // Who has left a conversion at its first questions stays where he was.
  if (conversion.HasTakenNumber()) board_.GoOnWithTheDay();
}

}  // namespace lantos
