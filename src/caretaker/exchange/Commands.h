#pragma once

#include "caretaker/Command.h"

namespace lantos {

void AddExport(CLI::App& app, Asked& asked);
void AddImport(CLI::App& app, Asked& asked);

}  // namespace lantos
