#pragma once

#include "contents/Surcharge.h"
#include "contents/labor/LaborLines.h"
#include "contents/labor/LaborRows.h"
#include "contents/parts/PartLines.h"
#include "workorders/Workorders.h"

namespace lantos {

// Everything an estimate can hold, for the board's commands. The board's two lists stand when it is made.
struct Contents {
  explicit Contents(const Workbench& theBench, Workorders& theWorkorders)
      : bench(theBench), workorders(theWorkorders) {}
  Contents(const Contents&) = delete;

  Workbench bench;
  Workorders& workorders;
  EstimateLines lines{{bench.estimate.LaborList(), LaborRows}, {}, {}};
  Surcharge surcharge{bench, lines};
  LaborLines labor{bench, lines.labor, surcharge};
  PartLines parts{bench, lines, surcharge};
};

}  // namespace lantos
