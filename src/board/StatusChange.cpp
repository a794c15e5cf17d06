#include "board/StatusChange.h"

#include "contents/conversion/ReadAfresh.h"
#include "frame/Dates.h"

namespace lantos {

namespace {

constexpr char kYes = 'Y';
constexpr char kNo = 'N';
constexpr char kAsk = 'A';

bool Continues(const StatusOptions& options) {
  const char letter = options[StatusOption::ContinuedAutoSchedule];
  return letter == kYes || letter == kAsk;
}

bool ConfirmReschedule(Shop& shop) {
  return shop.desktop.Ask(
             "Warning!\r\rStatus is normally changed to \"Rescheduled\" via the \"Reschedule\" command button.\r"
             "If you change it here, the estimate will not be automatically scheduled for the new date.\r\r"
             "Are you sure you wish to change the status to \"Rescheduled\"?",
             "Change Status to Rescheduled", ui::Buttons::YesNo, ui::Icon::Exclamation) == ui::Answer::Yes;
}

bool ConfirmContinue(Shop& shop) {
  return shop.desktop.Ask("\"Continue\" this estimate to the next business day?", "Change Status to Continued",
                          ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

// False ends the change.
bool ContinueToNextDay(Shop& shop, const Estimate& estimate, const ContinueEstimate& continueEstimate) {
  const bool asks = shop.environment.statusOptions[StatusOption::ContinuedAutoSchedule] == kAsk;
  if (asks && !ConfirmContinue(shop)) return false;
  const DaySerial from = estimate.SchedDate;
  const DaySerial to = continueEstimate();
  if (to == kNotContinued) return false;
  shop.desktop.Tell((asks ? "Continued by request" : "Automatically continued") +
                        (" from " + FormatDateWithWeekday(from)) + " to " + FormatDateWithWeekday(to),
                    "Continued...", ui::Icon::Information);
  return true;
}

}  // namespace

bool CanReschedule(const StatusOptions& options) { return options[StatusOption::RescheduledAllow] != kNo; }

bool PopupOffers(const StatusOptions& options, std::int16_t current, std::int16_t entry) {
  if (current < 0 || current >= static_cast<std::int16_t>(kStatusCount) || entry < 0 || entry > 9) return false;
  // The status it has stays on the menu, also when nobody may choose it any more.
  if (entry == kRescheduled && current != kRescheduled && !CanReschedule(options)) return false;
  const std::string_view offered = kStatusDescriptions[static_cast<std::size_t>(current)].offered;
  return offered.find(static_cast<char>('0' + entry)) != std::string_view::npos;
}

ChangeResult ChangeStatusByHand(Shop& shop, EstimateDatabase& database, const ContinueEstimate& continueEstimate,
                                std::int16_t newStatus) {
  const StatusOptions& options = shop.environment.statusOptions;
  Estimate& estimate = database.estimates.CurrentEstimate;
  if (newStatus == estimate.Status) return ChangeResult::Unchanged;
  const bool warns = newStatus == kRescheduled && options[StatusOption::RescheduledAllow] == kAsk;
  if (warns && !ConfirmReschedule(shop)) return ChangeResult::Refused;
  const bool continues = newStatus == kContinued && Continues(options);
  if (continues && !ContinueToNextDay(shop, estimate, continueEstimate)) return ChangeResult::Refused;
  const auto store = [&] { database.estimates.ChangeStatus(newStatus); };
  if (!continues) {
    store();
    return ChangeResult::Changed;
  }
  // Who carried the work on has stored the status already; another copy may have set one while the message was read.
  estimate.Status = kContinued;
  StoreUnlessChanged(shop, database, "Continue", store);
  return ChangeResult::Changed;
}

}  // namespace lantos
