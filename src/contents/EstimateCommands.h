#pragma once

#include "contents/LaborLines.h"
#include "contents/PartLines.h"
#include "contents/Workbench.h"

// The board's commands that open a screen of their own on the estimate on show.
namespace lantos {

// A standard job from the shop's list, through the labor screen; its inventory kit is offered after it.
void LaborAddCanned(Workbench& bench, LaborLines& labor, PartLines& parts);
void OfferLaborKit(Workbench& bench, PartLines& parts, std::string_view code);

// Recommendations of earlier work orders for this customer's vehicle become labor lines.
void LaborFollowup(Workbench& bench, LaborLines& labor);

void EstimateSublets(Workbench& bench);
void EstimateWaste(Workbench& bench);
void EstimateNotes(Workbench& bench);
void EstimateChecklist(Workbench& bench);
// The checklist values of the estimate on show into the table; names that aren't in it are told.
void LoadEstimateChecklist(Workbench& bench);

}  // namespace lantos
