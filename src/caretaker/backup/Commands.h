#pragma once

#include "caretaker/Command.h"

namespace lantos {

void AddBackup(CLI::App& app, Asked& asked);
void AddRestore(CLI::App& app, Asked& asked);
void AddVerify(CLI::App& app, Asked& asked);

}  // namespace lantos
