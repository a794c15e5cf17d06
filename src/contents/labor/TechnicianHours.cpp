#include "contents/labor/TechnicianHours.h"

#include <algorithm>
#include <cmath>

#include "estimatedb/LaborDays.h"

namespace lantos {

namespace {

bool IsBefore(const TechnicianHours::Sum& a, const TechnicianHours::Sum& b) {
  return a.day != b.day ? a.day < b.day : a.mechanic < b.mechanic;
}

// Labor without a number is nobody's, as that of number 0 is; a day that a foreign row has with a time is still that
// day.
void Merge(std::vector<TechnicianHours::Sum>& sums) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < sums.size(); ++i) {
    if (kept > 0 && !IsBefore(sums[kept - 1], sums[i])) {
      sums[kept - 1].hours += sums[i].hours;
    } else {
      sums[kept++] = sums[i];
    }
  }
  sums.resize(kept);
}

}  // namespace

TechnicianHours::TechnicianHours(de& database) {
  Recordset& rows = KeptTechHours(database);
  sums_.reserve(rows.Count());
  for (; !rows.Eof(); rows.MoveNext()) {
    sums_.push_back({rows.Date("SchedDate"), rows.Long("Mechanic"), std::llround(rows.Number("SumHours"))});
  }
  rows.Close();
  std::sort(sums_.begin(), sums_.end(), IsBefore);
  Merge(sums_);
}

std::span<const TechnicianHours::Sum> TechnicianHours::On(DaySerial day) const {
  const auto first = std::partition_point(sums_.begin(), sums_.end(), [&](const Sum& sum) { return sum.day < day; });
  const auto last = std::partition_point(first, sums_.end(), [&](const Sum& sum) { return sum.day == day; });
  return {first, last};
}

std::int64_t TechnicianHours::Of(std::int32_t mechanic, DaySerial day) const {
  const auto sums = On(day);
  const auto found = std::find_if(sums.begin(), sums.end(), [&](const Sum& sum) { return sum.mechanic == mechanic; });
  return found == sums.end() ? 0 : found->hours;
}

}  // namespace lantos
