#include "contents/labor/FollowupEntry.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/Followups.h"

namespace lantos {

namespace {

std::string NumberOrNothing(std::int32_t number) { return number == 0 ? std::string() : std::to_string(number); }

}  // namespace

FollowupEntry::FollowupEntry(Workbench& bench, const WoLaborLine& line, ui::TextBox& miles, ui::TextBox& days,
                             ui::TextBox& date)
    : bench_(bench), line_(line), miles_(miles), days_(days), date_(date) {
  for (ui::TextBox* box : {&miles_, &days_, &date_}) {
    box->OnLostFocus = [this, box] { CheckOf(*box); };
  }
}

void FollowupEntry::Show() {
  shown_ = {NumberOrNothing(line_.FollowupMiles), NumberOrNothing(line_.FollowupDays),
            line_.FollowupDate == 0 ? std::string() : FormatDate(FromFileDate(line_.FollowupDate))};
  Put(shown_);
}

void FollowupEntry::DisableWhenUsed() {
  const Estimate& estimate = bench_.database.estimates.CurrentEstimate;
  const bool used =
      bench_.shop.records.followups.Exists(estimate.CustomerNumber, estimate.VehVIN, estimate.VehLic,
                                           bench_.workorder.WorkorderNumber, line_.FollowupDate, line_.FollowupMiles);
  for (ui::TextBox* box : {&miles_, &days_, &date_}) box->SetEnabled(!used);
}

bool FollowupEntry::Check() {
  const FollowupFields now = Read();
  const bool untouched = now.miles == shown_.miles && now.days == shown_.days && now.date == shown_.date;
  return untouched || (CheckOf(miles_) && CheckOf(days_) && CheckOf(date_));
}

bool FollowupEntry::CheckOf(const ui::TextBox& field) {
  FollowupFields fields = Read();
  const DaySerial today = bench_.shop.environment.Today();
  const bool good = &field == &miles_  ? CheckMiles(fields, today, YearlyMiles(bench_.workorder.Vehicle))
                    : &field == &days_ ? CheckDays(fields, BaseDate())
                                       : CheckFollowupDate(fields, BaseDate(), today);
  if (good) Put(fields);
  return good;
}

// The days of a followup count from here. Before any booking or conversion there is no work order, and the line's own
// day serves.
DaySerial FollowupEntry::BaseDate() const {
  const FileDate opened = bench_.workorder.Totals.Get(wototals::DateOpen);
  if (!bench_.shop.environment.shopOptions.LaborDateOption && opened != 0) return FromFileDate(opened);
  return ParseDate(line_.Date).value_or(bench_.shop.environment.Today());
}

void FollowupEntry::Store(WoLaborLine& line) const {
  line.FollowupMiles = RoundHalfEven(Val(miles_.Text()));
  line.FollowupDays = IsNumeric(days_.Text()) ? RoundHalfEven(ToNumber(days_.Text())) : 0;
  const bool isDue = Val(miles_.Text()) > 0 || Val(days_.Text()) > 0;
  const auto date = ParseDate(date_.Text(), FromSerial(bench_.shop.environment.Today()).year);
  line.FollowupDate = isDue && date ? ToFileDate(*date) : 0;
}

FollowupFields FollowupEntry::Read() const { return {miles_.Text(), days_.Text(), date_.Text()}; }

void FollowupEntry::Put(const FollowupFields& fields) {
  miles_.SetText(fields.miles);
  days_.SetText(fields.days);
  date_.SetText(fields.date);
}

}  // namespace lantos
