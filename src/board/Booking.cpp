#include "board/Booking.h"

#include "estimatedb/VehicleSnapshots.h"
#include "frame/Dates.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/Vehicles.h"

namespace lantos {

namespace {

// A text that the person reads as it stands, backslash and letter.
constexpr const char* kPartsAndLabor = "There are parts and labor already on the estimate.\\n";
constexpr const char* kPartsOnly = "There are parts already on the estimate.\\n";
constexpr const char* kLaborOnly = "There are labor items already on the estimate.";

}  // namespace

void Booking::NewEstimate() {
  BoardState& state = parts_.state;
  DetailPane& detail = parts_.detail;
  ui::Button& detailView = parts_.commands.cmdDetailView;
  if (state.currentDate < parts_.shop.environment.Today() && !AskForPastDate()) return;
  const bool estimateOnly =
      parts_.shop.desktop.Ask("Is this an Estimate Only?\r\r(Will not be \"Scheduled\")", "New Estimate",
                              ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
  detailView.OnClick();
  detail.ClearDetail();
  if (!masters_.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate)) {
    parts_.shop.desktop.Tell("New Estimate cancelled.\r\rPrevious estimate redisplayed.", "New Estimate - Cancelled",
                             ui::Icon::Information);
    detailView.OnClick();
    return;
  }
  modEstimates& estimates = parts_.database.estimates;
  const std::int32_t number = estimates.CreateEstimate(state.currentDate, estimateOnly ? kEstimateOnly : kScheduled);
  // The caption tells of the new estimate while its vehicle is being chosen.
  estimates.LoadEstimate(number);
  detail.BeginNew(number);
  AttachCustomer();
  AttachVehicle();
  estimates.LoadEstimate(number);
  board_.AddEstimate(state.selectedDay, Current(),
                     parts_.day.cbShowLabor.Value() ? FetchLaborLines(Data(), number) : std::vector<std::string>());
  detailView.OnClick();
}

bool Booking::AskForPastDate() {
  return parts_.shop.desktop.Ask(
             "Warning.\r\rThe scheduled date is in the past.\r\rAre you sure you wish to schedule\r\r"
             "a new estimate for " +
                 FormatDate(parts_.state.currentDate) + " ?",
             "New Estimate", ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

void Booking::AttachCustomer() {
  parts_.detail.ShowCustomer(parts_.shop.records.customers.CurrentCustomer);
  const std::int32_t number = parts_.detail.Customer().Get(customer::Number);
  Data().SetCustomer(number, parts_.detail.DisplayedEstimate());
  Current().CustomerNumber = number;
}

void Booking::AttachVehicle() {
  Vehicles& vehicles = parts_.shop.records.vehicles;
  if (masters_.VehicleMaintenance() != MasterScreens::VehicleChoice::Selected) return;
  parts_.detail.ShowCustomer(parts_.shop.records.customers.CurrentCustomer);
  const VehicleRecord& record = vehicles.CurrentVehicle;
  Estimate& estimate = Current();
  estimate.VehicleLink = vehicles.CurrentVehicleOffset;
  PutSnapshot(estimate, SnapshotOf(record));
  parts_.detail.ShowVehicle();
  Data().SetVehicleNew(estimate.VehicleLink, SnapshotIn(estimate), parts_.detail.DisplayedEstimate());
}

void Booking::EditCustomer() {
  if (!masters_.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate)) return;
  AttachCustomer();
  AttachVehicle();
}

void Booking::EditVehicle() {
  const bool hasParts = parts_.detail.listParts.ListCount() > 0;
  const bool hasLabor = parts_.detail.listLabor.ListCount() > 0;
  const std::string text = hasParts ? (hasLabor ? kPartsAndLabor : kPartsOnly) : (hasLabor ? kLaborOnly : "");
  if (!text.empty()) {
    const ui::Answer answer = parts_.shop.desktop.Ask(text + "\rDid you want to keep them for the new vehicle?",
                                                      "Vehicle Edit", ui::Buttons::YesNoCancel);
    if (answer == ui::Answer::Cancel) return;
    if (answer == ui::Answer::No) {
      // On the screen only: the rows stay in the tables and come back at the next selection.
      parts_.detail.contents.parts.ClearPartList();
      parts_.detail.contents.labor.ClearLaborList();
    }
  }
  // The vehicles to choose from are those of the current customer.
  if (!parts_.shop.records.customers.MakeCurrent(Current().CustomerNumber)) {
    parts_.shop.desktop.Tell("The customer of this estimate isn't on file. Choose a customer first.", "Vehicle Edit",
                             ui::Icon::Information);
    return;
  }
  AttachVehicle();
}

}  // namespace lantos
