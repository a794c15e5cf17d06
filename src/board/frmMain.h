#pragma once

#include <functional>
#include <string>
#include <vector>

#include "board/Contents.h"
#include "board/DayCapacity.h"
#include "board/StatusChange.h"
#include "estimatedb/EstimateDatabase.h"
#include "masters/customers/MasterScreens.h"
#include "records/Customers.h"
#include "records/Followups.h"
#include "shop/Shop.h"
#include "ui/Form.h"

namespace lantos {

// What the main window leaves to the start-up code, which knows all modules.
struct StartAndStop {
  std::function<void()> processCommandLine;
  std::function<bool()> initGlobals;  // false ends the process silently
  std::function<void()> deleteUpdateFileAndCloseLog;
};

// The schedule board: calendar, commands and hours summary beside three stacked views of the same estimates. Filled
// by LoadWeek alone, from the database; nothing on it is a cache.
class frmMain : public ui::Form, private EstimateOnShow {
 public:
  frmMain(Shop& shop, EstimateDatabase& database, MasterScreens& masters, frmInvList& inventoryList,
          Workorders& workorders, StartAndStop startAndStop);

  ui::MonthView MonthView1{*this, "MonthView1"};
  ui::Frame Frame1{*this, "Frame1", "Hours"};
  ui::Label lblDate{*this, "lblDate"};
  ui::Label lblAvail{*this, "lblAvail"};
  ui::Label lblSched{*this, "lblSched"};
  ui::Label lblDiff{*this, "lblDiff"};
  ui::Label lblStatus{*this, "lblStatus"};

  ui::Frame frameCommands{*this, "frameCommands"};
  ui::Button cmdWeekView{*this, "cmdWeekView", "&Week View"};
  ui::Button cmdDayView{*this, "cmdDayView", "&Day View"};
  ui::Button cmdDetailView{*this, "cmdDetailView", "D&etail View"};
  ui::Button cmdNewEstimate{*this, "cmdNewEstimate", "&New Estimate"};
  ui::Button cmdPrintEstimate{*this, "cmdPrintEstimate", "&Print Estimate"};
  ui::Button cmdPrintWorksheet{*this, "cmdPrintWorksheet", "Print Wor&ksheet"};
  ui::Button cmdConvert{*this, "cmdConvert", "Convert &to WO"};
  ui::Button cmdReschedule{*this, "cmdReschedule", "&Reschedule"};
  ui::Button cmdChangeStatus{*this, "cmdChangeStatus", "Chan&ge Status"};
  ui::Button cmdFind{*this, "cmdFind", "F&ind"};
  ui::Button cmdWOHistory{*this, "cmdWOHistory", "WO Histor&y"};
  ui::Button cmdTechHours{*this, "cmdTechHours", "Tech Ho&urs"};
  ui::Button cmdEstimateNotes{*this, "cmdEstimateNotes", "N&otes"};
  ui::Button cmdEstimateSublets{*this, "cmdEstimateSublets", "Su&blets"};
  ui::Button cmdEstimateWaste{*this, "cmdEstimateWaste", "W&aste"};
  ui::Button cmdEstimateChecklist{*this, "cmdEstimateChecklist", "Check&list"};

  ui::Frame frameWeekView{*this, "frameWeekView"};
  ui::ControlArray<ui::Frame, kWeekdays> frameWeek{*this, "frameWeek"};
  ui::ControlArray<ui::ListBox, kWeekdays> List1{*this, "List1"};
  ui::Label lblWeekComment{*this, "lblWeekComment"};

  ui::Frame frameDayView{*this, "frameDayView"};
  ui::Frame frameDay{*this, "frameDay"};
  ui::ListBox List2{*this, "List2"};
  ui::Label lblDayComments{*this, "lblDayComments"};
  ui::CheckBox cbShowLabor{*this, "cbShowLabor", "S&how Labor"};
  ui::ControlArray<ui::OptionButton, 4> optDaySortBy{*this, "optDaySortBy"};
  ui::Button cmdPrintDay{*this, "cmdPrintDay", "Print Day"};

  ui::Frame frameDetailView{*this, "frameDetailView"};
  ui::Frame frameCustomer{*this, "frameCustomer", "Customer"};
  ui::Label lblCustName{*this, "lblCustName"};
  ui::Label lblCustSpouse{*this, "lblCustSpouse"};
  ui::Label lblCustAddr{*this, "lblCustAddr"};
  ui::Label lblCustCSZ{*this, "lblCustCSZ"};
  ui::Label lblCustPhoneH{*this, "lblCustPhoneH"};
  ui::Label lblCustPhoneW{*this, "lblCustPhoneW"};
  ui::Label lblCustPhoneO{*this, "lblCustPhoneO"};
  ui::Button cmdCustomerEdit{*this, "cmdCustomerEdit", "Edit..."};
  ui::Frame frameVehicle{*this, "frameVehicle", "Vehicle"};
  ui::Label lblVehYMM{*this, "lblVehYMM"};
  ui::Label lblVehVIN{*this, "lblVehVIN"};
  ui::Label lblVehLic{*this, "lblVehLic"};
  ui::Label lblVehDate{*this, "lblVehDate"};
  ui::Label lblVehMileage{*this, "lblVehMileage"};
  ui::Label lblEngTrans{*this, "lblEngTrans"};
  ui::Button cmdVehicleEdit{*this, "cmdVehicleEdit", "Edit..."};
  ui::Frame frameComments{*this, "frameComments", "Comments"};
  ui::TextBox txtComments{*this, "txtComments"};
  ui::Frame frameLabor{*this, "frameLabor", "Labor"};
  ui::ListBox listLabor{*this, "listLabor"};
  ui::Button cmdLaborAdd{*this, "cmdLaborAdd", "Add"};
  ui::Button cmdLaborAddCanned{*this, "cmdLaborAddCanned", "Add Canned"};
  ui::Button cmdLaborChange{*this, "cmdLaborChange", "Change"};
  ui::Button cmdLaborRemove{*this, "cmdLaborRemove", "Remove"};
  ui::Button cmdLaborFollowup{*this, "cmdLaborFollowup", "Followup"};
  ui::Frame frameParts{*this, "frameParts", "Parts"};
  ui::ListBox listParts{*this, "listParts"};
  ui::Button cmdPartAdd{*this, "cmdPartAdd", "Add"};
  ui::Button cmdPartAddNonStock{*this, "cmdPartAddNonStock", "Add Non-stock"};
  ui::Button cmdPartChange{*this, "cmdPartChange", "Change"};
  ui::Button cmdPartRemove{*this, "cmdPartRemove", "Remove"};
  ui::Frame frameTotals{*this, "frameTotals", "Totals"};
  ui::TextBox txtTotalHours{*this, "txtTotalHours"};
  ui::TextBox txtTotalLabor{*this, "txtTotalLabor"};
  ui::TextBox txtTotalParts{*this, "txtTotalParts"};
  ui::TextBox txtTotalSublet{*this, "txtTotalSublet"};
  ui::TextBox txtTotalWaste{*this, "txtTotalWaste"};
  ui::TextBox txtTotalTax{*this, "txtTotalTax"};
  ui::TextBox txtTotalCost{*this, "txtTotalCost"};

  // Rebuilds week lists, day list, hours and colours around a day. When the database can't be read the board stays as
  // it is. CurrentEstimate isn't touched.
  void LoadWeek(DaySerial date);
  // Shows CurrentEstimate in the detail view's controls.
  void ShowEstimateDetail();

 private:
  // Construction (frmMain.cpp, frmMainMenu.cpp).
  void ArrangePanels();
  void ArrangeDetail();
  void WireCalendar();
  void WireViews();
  void WireRightButton();
  void WireDetail();
  void DisableWhatIsNotBuilt();
  void BuildMenus();
  void BuildMaintenanceMenu();
  void BuildSystemMenu(ui::MenuItem& system);
  void BuildStatusMenus();

  // Start, stop and the day's end (frmMain.cpp).
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void OnMouseUp(ui::MouseButton button) override;
  void OnUnload(bool& refuse) override;
  bool StartSecondCopy();
  void RestoreSettings();
  void RestoreShownStatuses();
  void SaveSettings();
  void UnloadOtherForms();
  void CheckDayRollover();

  // The lists (Week.cpp).
  void SortByChoice(Recordset& estimates) const;
  struct BoardRow {
    Estimate estimate;
    std::vector<std::string> laborLines;  // of the day on show, when labor is shown
  };
  DaySerial PanelDate(std::size_t weekday) const;
  bool IsDayOnShow(std::size_t weekday) const;
  std::vector<BoardRow> FetchDay(DaySerial date, bool withLabor);
  std::vector<std::string> FetchLaborLines(std::int32_t estimate);
  void NameDays(DaySerial sunday, DaySerial dayOnShow);
  void FillPanel(std::size_t weekday, std::vector<BoardRow>& rows);
  void AddWeekLines(std::size_t weekday, Estimate& estimate);
  void AddDayLines(Estimate& estimate, const std::vector<std::string>& laborLines);
  void ShowDayHeader(std::size_t weekday);
  const CustomerRecord* FindCustomerOf(const Estimate& estimate);  // null when unknown
  void RefreshCustomerIndex();
  bool IsShown(std::int16_t status) const;

  // Views and what is chosen in them (Views.cpp).
  enum class View { Week, Day, Detail };
  void ShowView(View view);
  void WeekViewClick();
  void DayViewClick();
  void DetailViewClick();
  void PanelClick(std::size_t weekday);
  void WeekListClick(std::size_t weekday);
  void WeekListMouseUp(std::size_t weekday, ui::MouseButton button);
  void DayListClick();
  void DayListMouseUp(ui::MouseButton button);
  void DetailMouseUp(ui::MouseButton button);
  void PopupRefresh(ui::MouseButton button);
  void PopupStatusOf(std::int32_t estimate);  // of a row of the lists, which becomes current
  void SelectDay(std::size_t weekday);

  // Status by hand (Status.cpp).
  void ShowStatusPopup();
  void ChangeStatusClick();
  void RefreshStatusText(const std::string& word);
  void RefreshDayListStatus(const std::string& word);
  void RefreshWeekListStatus(const std::string& word);
  // The week of the current estimate, when the change moved it into or out of the day's hours. True when it did.
  bool LoadWeekIfCountChanged(std::int16_t oldStatus);
  std::string StatusText(Estimate& estimate);

  // Detail view (Detail.cpp).
  void ClearDetail();
  void RefreshDetailCaption(const std::string& text);
  void ShowCustomer();
  void ShowVehicle();
  void RefreshTotals() override;
  void ShowNotesMark();
  void SaveComments();
  void KeepUnsavedComments();

  // Papers (Print.cpp).
  void ReadPrintOptions();
  bool HasEstimateToPrint();
  void PrintEstimateClick();
  void PrintWorksheetClick();
  void PrintDayClick();
  void FollowPrint(StatusOption option, const char* question, std::int16_t status);

  // What the estimate holds (Lines.cpp).
  void WireLines();
  std::int32_t DisplayedEstimate() const override { return displayedEstimate_; }
  const CustomerRecord& Customer() const override { return estimateCustomer_; }
  ui::ListBox& LaborList() override { return listLabor; }
  ui::ListBox& PartList() override { return listParts; }
  void AddScheduledHours(Hundredths hours) override;
  void RefreshDay() override { ShowDayHeader(selectedDayIndex_); }
  std::string CommentsOnShow() const override { return txtComments.Text(); }
  void StoreComments(const std::string& comments) override;
  void ConvertClick();
  void RescheduleClick();
  ContinueEstimate Continuing();

  // Booking (NewEstimate.cpp).
  void NewEstimateClick();
  bool AskForPastDate();
  // Each says so when there is none. On show: what the detail view holds, which a load of the week empties. Current:
  // what was chosen last, on show or not.
  bool HasEstimateOnShow(const std::string& title);
  bool HasCurrentEstimate(const std::string& title, const std::string& text = "No estimate is selected.");
  void AttachCustomer();
  void AttachVehicle();
  void SaveVehicle();
  void CustomerEditClick();
  void VehicleEditClick();

  de& Data() { return database_.lantosData; }
  Estimate& Current() { return database_.estimates.CurrentEstimate; }
  DaySerial Today() const { return shop_.environment.Today(); }

  Shop& shop_;
  EstimateDatabase& database_;
  MasterScreens& masters_;
  StartAndStop startAndStop_;
  Contents contents_;

  ui::MenuItem* popupMenu_ = nullptr;
  ui::MenuItem* statusPopup_ = nullptr;
  std::array<ui::MenuItem*, kStatusCount> showStatus_{};
  std::array<ui::MenuItem*, kStatusCount> popupStatus_{};

  bool loading_ = false;
  std::string startedDate_;
  DaySerial currentDate_ = 0;       // given to the last LoadWeek
  DaySerial lastSelectedDate_ = 0;  // of the panel clicked last
  std::size_t selectedDayIndex_ = 0;
  DayCapacity capacity_;

  std::int32_t displayedEstimate_ = 0;
  std::string savedComment_;
  CustomerRecord estimateCustomer_;  // of the displayed estimate
};

}  // namespace lantos
