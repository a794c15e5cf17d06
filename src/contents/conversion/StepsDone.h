#pragma once

#include <exception>
#include <string>
#include <vector>

#include "frame/Environment.h"
#include "workorders/Workorder.h"

namespace lantos {

// What a conversion has done so far: each step goes to the run log, and an error says them all.
class StepsDone {
 public:
  StepsDone(RunLog& log, std::int32_t estimate, const Workorder& order)
      : log_(log), estimate_(estimate), order_(order) {}

  void Add(std::string step);
  // From now on an error warns of converting the estimate once more.
  void AddText(std::string step) {
    isWritten_ = true;
    Add(std::move(step));
  }
  // The error as it is while nothing was done; else WordedError with its text and what stays.
  [[noreturn]] void Rethrow(const std::exception& error) const;

 private:
  std::string Goal() const;  // the work order, in words

  RunLog& log_;
  std::int32_t estimate_;
  const Workorder& order_;
  std::vector<std::string> steps_;
  bool isWritten_ = false;
};

}  // namespace lantos
