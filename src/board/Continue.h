#pragma once

#include "board/StatusChange.h"

namespace lantos {

// Carries the current estimate on: a copy on the next business day, less the hours that were applied on this one, and
// this one Continued. Returns the new date, or kNotContinued when the person stopped and nothing has changed. The
// current estimate is as before; its status in memory is the caller's to set.
DaySerial ContinueCurrentEstimate(Shop& shop, EstimateDatabase& database);

}  // namespace lantos
