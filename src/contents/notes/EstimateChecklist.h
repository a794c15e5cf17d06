#pragma once

#include "contents/Workbench.h"

namespace lantos {

// The checklist of the estimate on show; there must be one.
void EstimateChecklist(Workbench& bench);
// The checklist values of the estimate on show into the table; names that aren't in it are told.
void LoadEstimateChecklist(Workbench& bench);

}  // namespace lantos
