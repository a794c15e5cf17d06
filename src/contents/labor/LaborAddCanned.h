#pragma once

#include "contents/labor/LaborLines.h"
#include "contents/parts/PartLines.h"

namespace lantos {

// A standard job from the shop's list, through the labor screen; its inventory kit is offered after it.
void LaborAddCanned(Workbench& bench, LaborLines& labor, PartLines& parts);
void OfferLaborKit(Workbench& bench, PartLines& parts, std::string_view code);

}  // namespace lantos
