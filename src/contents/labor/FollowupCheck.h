#pragma once

#include <string>
#include <string_view>

#include "frame/Types.h"
#include "records/Vehicles.h"

namespace lantos {

// The three fields that say when the customer shall come back. Each check may fill or empty the other two. False when
// the field holds what it can't mean.
struct FollowupFields {
  std::string miles, days, date;
};

// baseDate is the day that Days are counted from.
bool CheckDays(FollowupFields& fields, DaySerial baseDate);
bool CheckMiles(FollowupFields& fields, DaySerial today, std::int32_t yearlyMiles);
bool CheckFollowupDate(FollowupFields& fields, DaySerial baseDate, DaySerial today);

// From the vehicle's two odometer readings, where it has both; else 12000.
std::int32_t YearlyMiles(const VehicleRecord& vehicle);

}  // namespace lantos
