#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string_view>

#include "estimatedb/EstimateDatabase.h"
#include "shop/Shop.h"

namespace lantos {

// What the screens know of each status: the entry of the popup, the text of its option, and the popup's entries for an
// estimate that has it (one step forward or back, itself included).
struct StatusDescription {
  std::string_view popupCaption;
  std::string_view meaning;
  std::string_view offered;  // status codes, a digit each
};
inline constexpr std::array<StatusDescription, kStatusCount> kStatusDescriptions = {{
    {"Scheduled", "(Scheduled) - Displayed as blank.  Customer has been scheduled but vehicle has not yet arrived.",
     "016789"},
    {"Arrived", "Arrived - Customer has delivered vehicle, Estimate has been printed (and signed).", "0125"},
    {"In Progress", "In Progress - Mechanic has started work on the vehicle (work sheet has been printed).", "1235"},
    {"Completed", "Complete - Mechanic has completed work.", "234"},
    {"Departed", "Departed - Customer has picked up the vehicle.", "34"},
    {"Continued", "Continued - Work could not be completed.  Vehicle is scheduled again for following day.", "1235"},
    {"Cancelled", "Cancelled - Customer called and cancelled the work. *", "06"},
    {"Rescheduled", "Rescheduled - Customer called and rescheduled the work for another day. *", "07"},
    {"No Show", "No-Show - Customer did not deliver vehicle, nor did they call to cancel and/or reschedule.", "01678"},
    {"Estimate Only", "Estimate Only.  Customer not scheduled and totals not included in summary. *", "069"},
}};
inline constexpr std::string_view kStatusFootnote = "* Totals not included in daily summary.";

// Makes the estimate of the next business day that carries the work on. The new date, or -1 when the person stopped.
using ContinueEstimate = std::function<DaySerial()>;
inline constexpr DaySerial kNotContinued = -1;

// Whether an estimate can be set to Rescheduled by hand.
bool CanReschedule(const StatusOptions& options);
// Whether the popup shows an entry for an estimate of the current status. A status outside the table offers nothing.
bool PopupOffers(const StatusOptions& options, std::int16_t current, std::int16_t entry);

enum class ChangeResult {
  Unchanged,  // it has that status already; nothing at all happened
  Refused,    // the person, or an option, ended the operation
  Changed,    // in memory and in the database; or left as another copy has set it meanwhile
};
// A change of the current estimate's status by the person's hand, with the questions that belong to it.
ChangeResult ChangeStatusByHand(Shop& shop, EstimateDatabase& database, const ContinueEstimate& continueEstimate,
                                std::int16_t newStatus);

}  // namespace lantos
