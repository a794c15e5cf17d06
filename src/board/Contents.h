#pragma once

#include "contents/Surcharge.h"
#include "contents/labor/LaborLines.h"
#include "contents/parts/PartLines.h"
#include "workorders/Workorders.h"

namespace lantos {

// Everything an estimate can hold, for the board's commands.
struct Contents {
  explicit Contents(Workbench theBench, Workorders& theWorkorders) : bench(theBench), workorders(theWorkorders) {}

  Workbench bench;
  Workorders& workorders;
  Surcharge surcharge{bench};
  LaborLines labor{bench, surcharge};
  PartLines parts{bench, surcharge};
};

}  // namespace lantos
