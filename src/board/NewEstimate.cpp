#include "board/frmMain.h"
#include "estimatedb/VehicleSnapshots.h"
#include "frame/Dates.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/Vehicles.h"

// Booking: a new estimate for a customer chosen first and a vehicle chosen after that.
namespace lantos {

namespace {

// A text that the operator reads as it stands, backslash and letter.
constexpr const char* kPartsAndLabor = "There are parts and labor already on the estimate.\\n";
constexpr const char* kPartsOnly = "There are parts already on the estimate.\\n";
constexpr const char* kLaborOnly = "There are labor items already on the estimate.";

}  // namespace

void frmMain::NewEstimateClick() {
  CheckDayRollover();
  if (currentDate_ < Today() && !AskForPastDate()) return;
  const bool estimateOnly =
      shop_.desktop.Ask("Is this an Estimate Only?\r\r(Will not be \"Scheduled\")", "New Estimate", ui::Buttons::YesNo,
                        ui::Icon::Question) == ui::Answer::Yes;
  const std::int16_t status = estimateOnly ? kEstimateOnly : kScheduled;
  DetailViewClick();
  ClearDetail();
  if (!masters_.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate)) {
    shop_.desktop.Tell("New Estimate cancelled.\r\rPrevious estimate redisplayed.", "New Estimate - Cancelled",
                       ui::Icon::Information);
    DetailViewClick();
    return;
  }
  const std::int32_t number = database_.estimates.CreateEstimate(currentDate_, status);
  // The caption tells of the new estimate while its vehicle is being chosen.
  database_.estimates.LoadEstimate(number);
  displayedEstimate_ = number;
  RefreshDetailCaption("");
  AttachCustomer();
  AttachVehicle();
  database_.estimates.LoadEstimate(number);
  AddDayLines(Current(), cbShowLabor.Value() ? FetchLaborLines(number) : std::vector<std::string>());
  AddWeekLines(selectedDayIndex_, Current());
  DetailViewClick();
}

bool frmMain::AskForPastDate() {
  return shop_.desktop.Ask(
             "Warning.\r\rThe scheduled date is in the past.\r\rAre you sure you wish to schedule\r\r"
             "a new estimate for " +
                 FormatDate(currentDate_) + " ?",
             "New Estimate", ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

void frmMain::AttachCustomer() {
  estimateCustomer_ = shop_.records.customers.CurrentCustomer;
  ShowCustomer();
  const std::int32_t number = estimateCustomer_.Get(customer::Number);
  Data().SetCustomer(number, displayedEstimate_);
  Current().CustomerNumber = number;
}

void frmMain::AttachVehicle() {
  Vehicles& vehicles = shop_.records.vehicles;
  if (masters_.VehicleMaintenance() != MasterScreens::VehicleChoice::Selected) return;
  estimateCustomer_ = shop_.records.customers.CurrentCustomer;
  const VehicleRecord& record = vehicles.CurrentVehicle;
  Estimate& estimate = Current();
  estimate.VehicleLink = vehicles.CurrentVehicleOffset;
  PutSnapshot(estimate, SnapshotOf(record));
  ShowVehicle();
  SaveVehicle();
}

void frmMain::SaveVehicle() { Data().SetVehicleNew(Current().VehicleLink, SnapshotIn(Current()), displayedEstimate_); }

bool frmMain::HasEstimateOnShow(const std::string& title) {
  if (displayedEstimate_ != 0) return true;
  shop_.desktop.Tell("No estimate is selected.", title, ui::Icon::Information);
  return false;
}

void frmMain::CustomerEditClick() {
  CheckDayRollover();
  if (!HasEstimateOnShow("Customer Edit") || !masters_.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate))
    return;
  AttachCustomer();
  AttachVehicle();
}

void frmMain::VehicleEditClick() {
  CheckDayRollover();
  if (!HasEstimateOnShow("Vehicle Edit")) return;
  const bool hasParts = listParts.ListCount() > 0;
  const bool hasLabor = listLabor.ListCount() > 0;
  const std::string text = hasParts ? (hasLabor ? kPartsAndLabor : kPartsOnly) : (hasLabor ? kLaborOnly : "");
  if (!text.empty()) {
    const ui::Answer answer = shop_.desktop.Ask(text + "\rDid you want to keep them for the new vehicle?",
                                                "Vehicle Edit", ui::Buttons::YesNoCancel);
    if (answer == ui::Answer::Cancel) return;
    if (answer == ui::Answer::No) {
      // On the screen only: the rows stay in the tables and come back at the next selection.
      listParts.Clear();
      listLabor.Clear();
    }
  }
  // The vehicles to choose from are those of the current customer.
  if (!shop_.records.customers.MakeCurrent(Current().CustomerNumber)) {
    shop_.desktop.Tell("The customer of this estimate isn't on file. Choose a customer first.", "Vehicle Edit",
                       ui::Icon::Information);
    return;
  }
  AttachVehicle();
}

}  // namespace lantos
