#pragma once

#include <vector>

#include "contents/NumberedList.h"
#include "contents/PartLine.h"
#include "workorders/Workorder.h"

namespace lantos {

// The lines behind the two lists of the estimate on show. Where a list is emptied, its lines go with it: totals and
// surcharge follow what is seen.
struct EstimateLines {
  NumberedList<WoLaborLine> labor;
  std::vector<PartLine> parts;  // one behind each row
};

}  // namespace lantos
