#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "estimatedb/de.h"

namespace lantos {

// The hours of labor that each technician has on each day, as the database had them when this was made: what others
// enter later isn't in it. Estimates that are cancelled, rescheduled or estimates only count for nobody.
class TechnicianHours {
 public:
  struct Sum {
    DaySerial day = 0;
    std::int32_t mechanic = 0;  // employee number; 0: nobody's
    std::int64_t hours = 0;     // hundredths
  };

  // Reads them, and sees to it first that the database can give them quickly. Throws DatabaseError.
  explicit TechnicianHours(de& database);

  // Of one day, in the order of the numbers.
  std::span<const Sum> On(DaySerial day) const;
  // 0 where there are none.
  std::int64_t Of(std::int32_t mechanic, DaySerial day) const;

 private:
  std::vector<Sum> sums_;  // by day, then by number
};

}  // namespace lantos
