#pragma once

#include <string>

#include "shop/Shop.h"

namespace lantos {

// The program is started anew each day: past midnight the next command tells so and ends it.
class DayRollover {
 public:
  explicit DayRollover(Shop& shop) : shop_(shop) {}
  void Start();
  // Doesn't come back when the day is another one.
  void CheckDayRollover() const;

 private:
  Shop& shop_;
  std::string startedDate_;
};

}  // namespace lantos
