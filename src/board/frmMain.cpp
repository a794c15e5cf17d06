#include "board/frmMain.h"

#include <fmt/format.h>

#include "frame/Dates.h"
#include "frame/Text.h"
#include "records/MakesModels.h"
#include "records/modSystem.h"
#include "ui/GlobalKeys.h"

namespace lantos {

namespace {

constexpr double kDefaultPlace = 1000;
constexpr double kDefaultSize = 10000;
constexpr std::string_view kRunningCaption = "Lantos: ";

std::string Stored(ui::Twips value) { return fmt::format("{}", value); }

}  // namespace

frmMain::frmMain(Shop& shop, EstimateDatabase& database, MasterScreens& masters, frmInvList& inventoryList,
                 Workorders& workorders, StartAndStop startAndStop)
    : Form(shop.desktop, "frmMain", "Lantos"),
      shop_(shop),
      database_(database),
      masters_(masters),
      startAndStop_(std::move(startAndStop)),
      contents_(Workbench{shop, database, inventoryList, workorders.Current, *this}, workorders) {
  SetSize(kDefaultSize, kDefaultSize);
  SetResizable(true);
  ArrangePanels();
  ArrangeDetail();
  WireCalendar();
  WireViews();
  WireRightButton();
  WireDetail();
  WireLines();
  DisableWhatIsNotBuilt();
  BuildMenus();
}

void frmMain::ArrangePanels() {
  Frame1.Holds(lblDate, lblAvail, lblSched, lblDiff, lblStatus);
  frameCommands.Holds(cmdWeekView, cmdDayView, cmdDetailView, cmdNewEstimate, cmdPrintEstimate, cmdPrintWorksheet,
                      cmdConvert, cmdReschedule, cmdChangeStatus, cmdFind, cmdWOHistory, cmdTechHours, cmdEstimateNotes,
                      cmdEstimateSublets, cmdEstimateWaste, cmdEstimateChecklist);
  frameWeekView.Holds(lblWeekComment);
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    frameWeek[i].SetContainer(frameWeekView);
    frameWeek[i].Holds(List1[i]);
    frameWeek[i].SetToolTip("Double-click for the day view");
  }
  frameDayView.Holds(frameDay, lblDayComments, cbShowLabor, cmdPrintDay);
  frameDay.Holds(List2);
  List2.SetFace(ui::FontFace::FixedPitch);
  constexpr std::string_view sortCaptions[] = {"Est#", "Cust", "Veh", "Tech"};
  for (std::size_t i = 0; i < optDaySortBy.size(); ++i) {
    optDaySortBy[i].SetContainer(frameDayView);
    optDaySortBy[i].SetCaption(std::string(sortCaptions[i]));
  }
  optDaySortBy[0].SetValue(true);
  frameDayView.SetVisible(false);
}

void frmMain::ArrangeDetail() {
  frameDetailView.Holds(frameCustomer, frameVehicle, frameComments, frameLabor, frameParts, frameTotals);
  frameCustomer.Holds(lblCustName, lblCustSpouse, lblCustAddr, lblCustCSZ, lblCustPhoneH, lblCustPhoneW, lblCustPhoneO,
                      cmdCustomerEdit);
  frameVehicle.Holds(lblVehYMM, lblVehVIN, lblVehLic, lblVehDate, lblVehMileage, lblEngTrans, cmdVehicleEdit);
  frameComments.Holds(txtComments);
  txtComments.SetMaxLength(255);
  frameLabor.Holds(listLabor, cmdLaborAdd, cmdLaborAddCanned, cmdLaborChange, cmdLaborRemove, cmdLaborFollowup);
  frameParts.Holds(listParts, cmdPartAdd, cmdPartAddNonStock, cmdPartChange, cmdPartRemove);
  listParts.SetMultiSelect(true);
  listLabor.SetFace(ui::FontFace::FixedPitch);
  listParts.SetFace(ui::FontFace::FixedPitch);
  frameTotals.Holds(txtTotalHours, txtTotalLabor, txtTotalParts, txtTotalSublet, txtTotalWaste, txtTotalTax,
                    txtTotalCost);
  for (ui::TextBox* total :
       {&txtTotalHours, &txtTotalLabor, &txtTotalParts, &txtTotalSublet, &txtTotalWaste, &txtTotalTax, &txtTotalCost}) {
    total->SetLocked(true);
    total->SetTabStop(false);
  }
  frameDetailView.SetVisible(false);
}

void frmMain::WireCalendar() {
  MonthView1.OnDateClick = [this](DaySerial day) {
    LoadWeek(day);
    WeekViewClick();
    cmdWeekView.SetFocus();
  };
  MonthView1.OnDateDoubleClick = [this](DaySerial day) {
    LoadWeek(day);
    DayViewClick();
    cmdDayView.SetFocus();
  };
}

void frmMain::WireViews() {
  cmdWeekView.OnClick = [this] { WeekViewClick(); };
  cmdDayView.OnClick = [this] { DayViewClick(); };
  cmdDetailView.OnClick = [this] { DetailViewClick(); };
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    frameWeek[i].OnClick = [this, i] { PanelClick(i); };
    frameWeek[i].OnDoubleClick = [this, i] {
      PanelClick(i);
      DayViewClick();
    };
    List1[i].OnClick = [this, i] { WeekListClick(i); };
    List1[i].OnDoubleClick = [this, i] {
      ShowDayHeader(i);
      WeekListClick(i);
      DetailViewClick();
    };
  }
  List2.OnClick = [this] { DayListClick(); };
  List2.OnDoubleClick = [this] {
    DayListClick();
    DetailViewClick();
  };
  cbShowLabor.OnClick = [this] { DayViewClick(); };
  for (ui::OptionButton& option : optDaySortBy) {
    option.OnClick = [this] { LoadWeek(static_cast<DaySerial>(Val(frameDay.Tag()))); };
  }
}

void frmMain::WireRightButton() {
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    List1[i].OnMouseUp = [this, i](ui::MouseButton button) { WeekListMouseUp(i, button); };
  }
  List2.OnMouseUp = [this](ui::MouseButton button) { DayListMouseUp(button); };
  frameDetailView.OnMouseUp = [this](ui::MouseButton button) { DetailMouseUp(button); };
  const auto popup = [this](ui::MouseButton button) { PopupRefresh(button); };
  frameCommands.OnMouseUp = popup;
  frameDayView.OnMouseUp = popup;
  frameWeekView.OnMouseUp = popup;
  lblDayComments.OnMouseUp = popup;
}

void frmMain::WireDetail() {
  txtComments.OnLostFocus = [this] { SaveComments(); };
  cmdNewEstimate.OnClick = [this] { NewEstimateClick(); };
  cmdChangeStatus.OnClick = [this] { ChangeStatusClick(); };
  cmdPrintEstimate.OnClick = [this] { PrintEstimateClick(); };
  cmdPrintWorksheet.OnClick = [this] { PrintWorksheetClick(); };
  cmdPrintDay.OnClick = [this] { PrintDayClick(); };
  cmdReschedule.OnClick = [this] { RescheduleClick(); };
  cmdCustomerEdit.OnClick = [this] { CustomerEditClick(); };
  cmdVehicleEdit.OnClick = [this] { VehicleEditClick(); };
  cmdWeekView.SetToolTip("Seven days at a glance");
  cmdDayView.SetToolTip("All estimates of the selected day");
  cmdDetailView.SetToolTip("The selected estimate in full");
  cmdNewEstimate.SetToolTip("Book an estimate on the selected day");
  cmdChangeStatus.SetToolTip("Change the status of the selected estimate");
  cmdPrintEstimate.SetToolTip("The customer's copy of the selected estimate");
  cmdPrintWorksheet.SetToolTip("The paper that travels with the vehicle");
  cmdPrintDay.SetToolTip("The list below on paper");
  cmdReschedule.SetToolTip("Move the selected estimate to another day");
  cmdConvert.SetToolTip("Make the selected estimate a work order");
  cmdCustomerEdit.SetToolTip("Choose another customer and vehicle");
  cmdVehicleEdit.SetToolTip("Choose another vehicle of this customer");
  txtComments.SetToolTip("Saved when you leave the field");
}

void frmMain::DisableWhatIsNotBuilt() {
  for (ui::Button* button : {&cmdFind, &cmdWOHistory, &cmdTechHours}) {
    button->SetEnabled(false);
  }
}

void frmMain::OnLoad() {
  loading_ = true;
  startedDate_ = FormatDate(Today());
  startAndStop_.processCommandLine();
  if (!startAndStop_.initGlobals()) shop_.desktop.EndProcess(0);
  RestoreSettings();
  // This caption keeps the search for another copy from finding this one.
  SetCaption("Lantos Starting...");
  if (!StartSecondCopy()) {
    Unload();
    return;
  }
  SetCaption(std::string(kRunningCaption) + shop_.records.system.SysRec.Get(sysrec::company_name) + " (" +
             shop_.environment.files.DataDir() + ")");
  MonthView1.SetValue(Today());
  LoadWeek(Today());
  WeekViewClick();
  RestoreShownStatuses();
  loading_ = false;
  PanelClick(static_cast<std::size_t>(WeekdayIndex(Today())));
}

// False when this copy is to go.
bool frmMain::StartSecondCopy() {
  ui::Desktop& desktop = shop_.desktop;
  if (!desktop.FindWindowByTitle(kRunningCaption, false)) return true;
  switch (
      desktop.Ask("The Korvel Apppointment Scheduler is already running.\r\r"
                  "Click Yes to switch to the running application.\r\r"
                  "Click No to allow another copy to run.\r\r"
                  "Click Cancel to exit this copy.",
                  "Multiple Lantos Instances", ui::Buttons::YesNoCancel, ui::Icon::Question)) {
    case ui::Answer::Yes:
      return !desktop.FindWindowByTitle(kRunningCaption, true);
    case ui::Answer::No:
      return true;
    default:
      return false;
  }
}

void frmMain::RestoreSettings() {
  const UserSettings& settings = shop_.environment.settings;
  const auto place = [&](std::string_view key, double whenAbsent) {
    return static_cast<ui::Twips>(settings.GetNumber(key, whenAbsent));
  };
  SetPosition(place("MainLeft", kDefaultPlace), place("MainTop", kDefaultPlace));
  SetSize(place("MainWidth", kDefaultSize), place("MainHeight", kDefaultSize));
  const double state = settings.GetNumber("MainState", 0);
  SetState(state == 1 ? ui::WindowState::Minimized : state == 2 ? ui::WindowState::Maximized : ui::WindowState::Normal);
  cbShowLabor.SetValue(settings.GetNumber("LaborOnDayView", 1) != 0);
}

void frmMain::RestoreShownStatuses() {
  const std::string shown = shop_.environment.settings.Get("ShowStatus", "1111111111");
  for (std::size_t i = 0; i < showStatus_.size(); ++i) {
    showStatus_[i]->SetChecked(Val(Mid(shown, i + 1, 1)) != 0);
  }
}

void frmMain::SaveSettings() {
  UserSettings& settings = shop_.environment.settings;
  settings.Save("MainState", std::to_string(static_cast<int>(State())));
  if (State() == ui::WindowState::Normal) {
    settings.Save("MainLeft", Stored(LeftEdge()));
    settings.Save("MainTop", Stored(TopEdge()));
    settings.Save("MainWidth", Stored(Width()));
    settings.Save("MainHeight", Stored(Height()));
  }
  settings.Save("LaborOnDayView", cbShowLabor.Value() ? "1" : "0");
}

// Runs in full for a copy that goes at its question about another one, too: that copy's filter is still the designed
// one, and is stored as such.
void frmMain::OnUnload(bool&) {
  shop_.desktop.SetPointer(ui::Pointer::Hourglass);
  Run([this] { KeepUnsavedComments(); });  // a database that is gone doesn't keep the window open
  Data().CloseRecordsets();
  database_.korvelData.CloseRecordsets();
  std::string shown;
  for (const ui::MenuItem* item : showStatus_) shown += item->Checked() ? '1' : '0';
  shop_.environment.settings.Save("ShowStatus", shown);
  UnloadOtherForms();
  SaveSettings();
  ProfileFile profile = shop_.environment.Profile();
  WorkstationProfile(profile, shop_.environment.profileSection).WriteFontFactor(shop_.environment.fontFactor);
  startAndStop_.deleteUpdateFileAndCloseLog();
  shop_.desktop.SetPointer(ui::Pointer::Normal);
}

// From the last to the second, going on past any error.
void frmMain::UnloadOtherForms() {
  const std::vector<ui::Form*> forms = shop_.desktop.LoadedForms();
  for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
    if (*form == this) continue;
    try {
      (*form)->Unload();
    } catch (const std::exception& error) {
      shop_.environment.log.Write(error.what());
    }
  }
}

void frmMain::OnKeyDown(ui::KeyPress& key) { shop_.keys.HandleGlobalKeys(key, *this); }

void frmMain::OnMouseUp(ui::MouseButton button) { PopupRefresh(button); }

void frmMain::CheckDayRollover() {
  const std::string currentDate = FormatDate(Today());
  if (currentDate == startedDate_) return;
  shop_.desktop.Tell(
      "NOTE: This application must be restarted each \r\n"
      "day in order to maintain data files integrity.\r\n\r\n"
      "Started date: " +
          startedDate_ +
          "\r\n"
          "Current date: " +
          currentDate +
          "\r\n\r\n"
          "Click OK to exit the application.",
      "Restart required.", ui::Icon::Information);
  shop_.desktop.EndProcess(0);
}

}  // namespace lantos
