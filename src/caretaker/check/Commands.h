#pragma once

#include "caretaker/Command.h"

namespace lantos {

void AddCheck(CLI::App& app, Asked& asked);
void AddRepair(CLI::App& app, Asked& asked);
void AddLogs(CLI::App& app, Asked& asked);

}  // namespace lantos
