#pragma once

#include <functional>

#include "estimatedb/EstimateDatabase.h"

namespace lantos {

// The copy of the current estimate on another day, for a move or a continuation. Nothing of it is undone: what is made
// stays, whatever fails behind it, and the person is told which estimate that is.
class EstimateCopy {
 public:
  explicit EstimateCopy(modEstimates& estimates) : estimates_(estimates) {}

  // Makes the copy and what belongs to it. What fails before its row stands is thrown as it is, what fails behind that
  // as a WordedError that names the copy first.
  void Run(const std::function<void()>& steps) const;
  // Its row and its lines, as a step of Run; what stands on that day from an earlier try isn't made again.
  void Make(DaySerial date, std::int16_t status);

  std::int32_t Number() const { return number_; }  // 0: no row has been made

 private:
  std::string WhatStays() const;

  modEstimates& estimates_;
  std::int32_t number_ = 0;
  DaySerial date_ = 0;
  bool isWhole_ = false;
};

}  // namespace lantos
