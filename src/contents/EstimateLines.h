#pragma once

#include <set>
#include <string>
#include <vector>

#include "contents/NumberedList.h"
#include "contents/PartLine.h"
#include "workorders/Workorder.h"

namespace lantos {

// The lines behind the two lists of the estimate on show. Where a list is emptied, its lines go with it: totals follow
// what is seen, and the surcharge counts none that were taken off the screen.
struct EstimateLines {
  NumberedList<WoLaborLine> labor;
  std::vector<PartLine> parts;           // one behind each row
  std::set<std::string> partsOffScreen;  // by part number
};

}  // namespace lantos
