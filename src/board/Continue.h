#pragma once

#include "board/StatusChange.h"

namespace lantos {

struct Continued {
  DaySerial next = kNotContinued;  // kNotContinued when the person stopped
  bool hasCopied = false;          // a copy stands in the database, whatever became of the rest
};

// Carries the current estimate on: a copy on the next business day, less the hours that were applied on this one, and
// this one Continued. The form stays until that is stored or the person stops; each try goes on where the one before
// was refused. The current estimate is as before; its status in memory is the caller's to set.
Continued ContinueCurrentEstimate(Shop& shop, EstimateDatabase& database);

}  // namespace lantos
