#pragma once

#include "contents/Workbench.h"

namespace lantos {

// The checklist of the estimate on show; there must be one.
void EstimateChecklist(Workbench& bench);
// The checklist values of the estimate on show into the table, with whether names that aren't in it are told.
enum class Strangers { Told, Unsaid };
void LoadEstimateChecklist(Workbench& bench, Strangers strangers = Strangers::Told);

}  // namespace lantos
