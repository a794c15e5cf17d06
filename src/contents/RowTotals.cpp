#include "contents/RowTotals.h"

#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

double TotalOfRow(std::string_view row) {
  const std::size_t blank = row.rfind(' ');
  return Val(blank == std::string_view::npos ? row : row.substr(blank + 1));
}

double HoursOfLaborRow(std::string_view row) {
  if (row.size() < 8) return 0;
  const std::string_view rest = row.substr(7);
  return Val(rest.substr(0, rest.find(' ')));
}

Cents CentsOfRow(std::string_view row) { return RoundHalfEven(TotalOfRow(row) * 100); }

}  // namespace lantos
