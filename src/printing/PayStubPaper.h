#pragma once

#include <vector>

#include "payroll/PayStub.h"
#include "ui/Desktop.h"

namespace lantos {

// Straight to the printer, upright, in a fixed-pitch font; a PDF where no printer is. Throws what the printer does.
void PrintPayStub(ui::Desktop& desktop, const std::vector<StubLine>& lines);

}  // namespace lantos
