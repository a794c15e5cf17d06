#include "contents/labor/FollowupCheck.h"

#include <limits>
#include <optional>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::int32_t kUsualYearlyMiles = 12000;
constexpr double kDaysAYear = 365;
constexpr DaySerial kFirstDay = -657434;  // 1 January 100
constexpr DaySerial kLastDay = 2958465;   // 31 December 9999

// Empty where no calendar has the day.
std::string DateText(double day) {
  return day < kFirstDay || day > kLastDay ? std::string() : FormatDate(static_cast<DaySerial>(day));
}

}  // namespace

bool CheckDays(FollowupFields& fields, DaySerial baseDate) {
  if (Trim(fields.days).empty()) return true;
  if (!IsNumeric(fields.days)) return false;
  const std::string date = DateText(baseDate + static_cast<double>(RoundHalfEven(ToNumber(fields.days))));
  if (date.empty()) return false;
  fields.miles.clear();
  fields.date = date;
  return true;
}

bool CheckMiles(FollowupFields& fields, DaySerial today, std::int32_t yearlyMiles) {
  if (Trim(fields.miles).empty()) return true;
  if (!IsNumeric(fields.miles)) return false;
  const std::string date =
      DateText(today + static_cast<double>(RoundHalfEven(Val(fields.miles) * kDaysAYear / yearlyMiles)));
  if (date.empty()) return false;
  fields.days.clear();
  fields.date = date;
  return true;
}

bool CheckFollowupDate(FollowupFields& fields, DaySerial baseDate, DaySerial today) {
  if (Trim(fields.date).empty()) return true;
  const std::optional<DaySerial> date = ParseDate(fields.date, FromSerial(today).year);
  if (!date) return false;
  if (Trim(fields.days).empty() && Trim(fields.miles).empty()) fields.days = std::to_string(*date - baseDate);
  return true;
}

std::int32_t YearlyMiles(const VehicleRecord& vehicle) {
  const std::int64_t miles = vehicle.Get(vehicle::Mileage);
  const std::int64_t firstMiles = vehicle.Get(vehicle::FirstMileage);
  const std::int64_t date = vehicle.Get(vehicle::Date);
  const std::int64_t firstDate = vehicle.Get(vehicle::FirstDate);
  const bool allSet = miles != 0 && firstMiles != 0 && date != 0 && firstDate != 0;
  if (!allSet || miles == firstMiles || date == firstDate) return kUsualYearlyMiles;
  const std::int32_t yearly =
      RoundHalfEven(static_cast<double>(miles - firstMiles) * kDaysAYear / static_cast<double>(date - firstDate));
  return yearly == 0 ? kUsualYearlyMiles : yearly;
}

}  // namespace lantos
