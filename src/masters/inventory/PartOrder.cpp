#include "masters/inventory/PartOrder.h"

#include "frame/Text.h"

namespace lantos {

std::string ComputeSortKey(std::string_view stockNumber) {
  const std::string s = CleanForFile(stockNumber);
  const auto dashAt = [&s](std::size_t position) { return position <= s.size() && s[position - 1] == '-'; };
  // Positions count from 1.
  if (dashAt(2) && dashAt(6) && dashAt(10) && !IsNumeric(s)) {
    return Mid(s, 1, 2) + Mid(s, 7, 4) + Mid(s, 3, 4) + Mid(s, 11);
  }
  if (dashAt(4) && dashAt(8) && !dashAt(2)) return Mid(s, 5, 4) + Mid(s, 1, 4) + Mid(s, 9);
  return s;
}

}  // namespace lantos
