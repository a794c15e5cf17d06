#include "board/EstimateCopy.h"

#include <exception>

#include "contents/conversion/ReadAfresh.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/PlainWords.h"
#include "records/GivenUp.h"

namespace lantos {

void EstimateCopy::Make(DaySerial date, std::int16_t status, const Steps& steps) {
  try {
    MakeAllTogether(date, status, steps);
  } catch (const std::exception& error) {
    if (made_.number == 0) throw;
    throw WordedError(WhatStays() + error.what(), WhatStays() + WordsFor(error));
  }
}

// An error behind the row is kept until the transaction has ended with what stood before it.
void EstimateCopy::MakeAllTogether(DaySerial date, std::int16_t status, const Steps& steps) {
  const std::int32_t number = IsMadeOn(date) ? made_.number : database_.estimates.TakeNumber();
  const Made before = made_;
  std::exception_ptr refused;
  bool isStored = false;
  try {
    isStored = StoreUnlessChanged(shop_, database_, title_, [&] {
      steps.before();
      try {
        MakeRowAndLines(number, date, status);
        steps.rest();
      } catch (const std::exception&) {
        if (!IsMadeOn(date)) throw;
        refused = std::current_exception();
      }
    });
  } catch (...) {
    made_ = before;
    throw;
  }
  if (!isStored) throw GivenUp("This estimate was left as it is.");
  steps.stored();
  if (refused) std::rethrow_exception(refused);
}

// A copy that was made for another day before stays too, and is the one to name while there is no other.
void EstimateCopy::MakeRowAndLines(std::int32_t number, DaySerial date, std::int16_t status) {
  modEstimates& estimates = database_.estimates;
  if (!IsMadeOn(date)) {
    estimates.AddRow(number, date, status);
    made_ = {.number = number, .date = date};
  }
  if (made_.isWhole) return;
  estimates.CloneEstimateContents(estimates.CurrentEstimate.EstimateNumber, number);
  made_.isWhole = true;
}

std::string EstimateCopy::WhatStays() const {
  return "Estimate # " + FormatZeros(made_.number, 6) + " was made on " + FormatDateWithWeekday(made_.date) +
         (made_.isWhole ? " as a copy of this one" : " as a copy of this one, without its lines") +
         ", and stays there. The next step was not finished:\r\r";
}

}  // namespace lantos
