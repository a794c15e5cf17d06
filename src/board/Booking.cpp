#include "board/Booking.h"

#include "contents/Changing.h"
#include "contents/CustomerOfEstimate.h"
#include "estimatedb/VehicleSnapshots.h"
#include "frame/Dates.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/GivenUp.h"
#include "records/Vehicles.h"

namespace lantos {

namespace {

// A text that the person reads as it stands, backslash and letter.
constexpr const char* kPartsAndLabor = "There are parts and labor already on the estimate.\\n";
constexpr const char* kPartsOnly = "There are parts already on the estimate.\\n";
constexpr const char* kLaborOnly = "There are labor items already on the estimate.";

}  // namespace

void Booking::NewEstimate() {
  const DaySerial day = parts_.state.currentDate;
  if (day < parts_.shop.environment.Today() && !AskForPastDate(day)) return;
  const bool estimateOnly =
      parts_.shop.desktop.Ask("Is this an Estimate Only?\r\r(Will not be \"Scheduled\")", "New Estimate",
                              ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
  parts_.commands.cmdDetailView.OnClick();
  parts_.detail.ClearDetail();
  std::optional<std::int32_t> number;
  ChangeOrGoBack([&] { number = Create(day, estimateOnly ? kEstimateOnly : kScheduled); }, [this] { ShowPrevious(); });
  if (!number) {
    parts_.shop.desktop.Tell("New Estimate cancelled.\r\rPrevious estimate redisplayed.", "New Estimate - Cancelled",
                             ui::Icon::Information);
    ShowPrevious();
    return;
  }
  PrepareWorkorder(*number, day);
  Book(*number);
}

std::optional<std::int32_t> Booking::Create(DaySerial day, Status status) {
  if (!masters_.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate,
                                    "New Estimate on " + FormatDateWithWeekday(day))) {
    return std::nullopt;
  }
  modEstimates& estimates = parts_.database.estimates;
  const std::int32_t number = estimates.TakeNumber();
  Data().Connection().Together([&] {
    estimates.AddRow(number, day, status);
    TrySetCustomer(number);
  });
  return number;
}

// With its row, so that a process that ends here leaves no estimate of nobody. What is refused is tried again, and
// asked about, when the estimate is on show; a full or broken disk takes the row back too.
void Booking::TrySetCustomer(std::int32_t number) {
  const std::int32_t customer = parts_.shop.records.customers.CurrentCustomer.Get(customer::Number);
  try {
    Data().Connection().Apart([&] { Data().SetCustomer(customer, number); });
  } catch (const DatabaseError& error) {
    parts_.shop.environment.log.Write(error.what());
  }
}

void Booking::ShowPrevious() {
  parts_.commands.cmdDetailView.OnClick();
  board_.RefreshLines();
}

// An estimate that stands in the database is shown, whatever else the database refuses of it.
void Booking::Book(std::int32_t number) {
  // The caption tells of the new estimate while its vehicle is being chosen.
  parts_.database.estimates.LoadEstimate(number);
  parts_.detail.BeginNew(number);
  try {
    const CustomerRecord& chosen = parts_.shop.records.customers.CurrentCustomer;
    if (Current().CustomerNumber == chosen.Get(customer::Number)) {
      parts_.detail.ShowCustomer(chosen);
    } else {
      AttachCustomer();
    }
    AttachVehicle();
  } catch (const std::exception&) {
    ShowBooked(number);
    throw;
  }
  ShowBooked(number);
}

// What was taken up of another one, its vehicle above all, is no part of this one.
void Booking::PrepareWorkorder(std::int32_t number, DaySerial day) {
  Workorder& order = parts_.detail.contents.workorders.Current;
  ClearWorkorder(order);
  order.WorkorderNumber = number;
  order.Type = "Estimate";
  order.Status = kWoStatusTexts[static_cast<std::size_t>(WoStatus::Open)];
  order.Totals.Put(wototals::DateOpen, ToFileDate(day));
}

void Booking::ShowBooked(std::int32_t number) {
  parts_.database.estimates.LoadEstimate(number);
  board_.AddCurrent();
  parts_.commands.cmdDetailView.OnClick();
  parts_.detail.txtComments.SetFocus();
}

bool Booking::AskForPastDate(DaySerial day) {
  return parts_.shop.desktop.Ask(
             "Warning.\r\rThe scheduled date is in the past.\r\rAre you sure you wish to schedule\r\r"
             "a new estimate for " +
                 FormatDate(day) + " ?",
             "New Estimate", ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

void Booking::AttachCustomer() {
  const CustomerRecord& chosen = parts_.shop.records.customers.CurrentCustomer;
  const std::int32_t number = chosen.Get(customer::Number);
  StoreChoice("customer", [&] { Data().SetCustomer(number, parts_.detail.DisplayedEstimate()); });
  Current().CustomerNumber = number;
  parts_.detail.ShowCustomer(chosen);
}

void Booking::AttachVehicle() {
  Vehicles& vehicles = parts_.shop.records.vehicles;
  if (masters_.VehicleMaintenance() != MasterScreens::VehicleChoice::Selected) return;
  parts_.detail.ShowCustomer(parts_.shop.records.customers.CurrentCustomer);
  Estimate changed = Current();
  changed.VehicleLink = vehicles.CurrentVehicleOffset;
  PutSnapshot(changed, SnapshotOf(vehicles.CurrentVehicle));
  StoreChoice("vehicle", [&] {
    Data().SetVehicleNew(changed.VehicleLink, SnapshotIn(changed), parts_.detail.DisplayedEstimate());
  });
  Current() = changed;
  parts_.detail.ShowVehicle();
}

// What was chosen is kept for as long as the database refuses it and the person tries again.
void Booking::StoreChoice(const std::string& what, const std::function<void()>& store) {
  for (;;) {
    try {
      return store();
    } catch (const DatabaseError& error) {
      parts_.shop.environment.log.Write(error.what());
      const ui::Answer answer =
          parts_.shop.desktop.Ask(WordsFor(error) + "\r\rClick Retry to store the " + what +
                                      " that you chose, or Cancel to leave the estimate as it was.",
                                  "Estimate", ui::Buttons::RetryCancel, ui::Icon::Exclamation);
      if (answer == ui::Answer::Cancel) throw GivenUp("The " + what + " of the estimate was not stored.");
    }
  }
}

void Booking::EditCustomer() {
  if (!masters_.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate)) {
    // One may have been edited on the way.
    parts_.detail.ReadCustomerAgain();
    board_.RefreshLines();
    return;
  }
  AttachCustomer();
  // The taxes are those of the new customer, whether a vehicle is chosen or not.
  parts_.detail.RefreshTotals();
  board_.RefreshLines();
  AttachVehicle();
  board_.RefreshLines();
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
  if (!HasCustomer(parts_.shop, Current().CustomerNumber, "Vehicle Edit")) return;
  AttachVehicle();
  board_.RefreshLines();
}

}  // namespace lantos
