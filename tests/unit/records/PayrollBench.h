#pragma once

#include "Fixture.h"
#include "records/Payroll.h"

namespace lantos::test {

// A pay record of employee 7 with nothing but a date and a link, or as another's.
inline Image PayImage(std::int32_t date, std::int32_t next, std::int32_t employee = 7) {
  return Image(303).Long(0, employee).Long(4, date).Long(299, next);
}

inline constexpr std::int32_t kPayLength = 303;

// Employee 7 behind another one, whose chain begins at head.
inline std::string PaidEmployees(std::int32_t head) {
  return EmployeeImage(3, "Ann").Long(195, -1).Bytes() + EmployeeImage(7, "Carl").Long(195, head).Bytes();
}

// Records 0, 1, 2, … of the file lead from the last to the first.
inline std::string PayFile(int count) {
  std::string file;
  for (int i = 0; i < count; ++i) file += PayImage(731868 + i, i == 0 ? -1 : (i - 1) * kPayLength).Bytes();
  return file;
}

}  // namespace lantos::test
