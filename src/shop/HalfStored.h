#pragma once

#include <string>
#include <vector>

#include "frame/Environment.h"
#include "ui/Desktop.h"

namespace lantos {

// Customers, vehicles and parts that a program was storing when it ended: finishes what its journals (WriteAhead) tell
// of, and says so. Those of programs that still run are left alone; what can't be read or written is told, and stays
// for the next start.
void SettleRecords(Environment& environment, ui::Desktop& desktop, const std::vector<std::string>& journals);

}  // namespace lantos
