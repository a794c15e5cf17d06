#include "board/EstimateCopy.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/PlainWords.h"

namespace lantos {

void EstimateCopy::Run(const std::function<void()>& steps) const {
  try {
    steps();
  } catch (const std::exception& error) {
    if (number_ == 0) throw;
    throw WordedError(WhatStays() + error.what(), WhatStays() + WordsFor(error));
  }
}

void EstimateCopy::Make(DaySerial date, std::int16_t status) {
  if (number_ == 0 || date_ != date) {
    // One that was made for another day before stays too, and is the one to name while there is no other.
    number_ = estimates_.CreateEstimate(date, status);
    date_ = date;
    isWhole_ = false;
  }
  if (isWhole_) return;
  estimates_.CloneEstimateContents(estimates_.CurrentEstimate.EstimateNumber, number_);
  isWhole_ = true;
}

std::string EstimateCopy::WhatStays() const {
  return "Estimate # " + FormatZeros(number_, 6) + " was made on " + FormatDateWithWeekday(date_) +
         (isWhole_ ? " as a copy of this one" : " as a copy of this one, without its lines") +
         ", and stays there. The next step was not finished:\r\r";
}

}  // namespace lantos
