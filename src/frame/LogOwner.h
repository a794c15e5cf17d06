#pragma once

#include <string>
#include <string_view>

namespace lantos {

// The line by which a run log tells whose it is, for whoever reads it later; and back: false, with nothing set, for any
// other line.
std::string WorkstationLine(std::string_view workstation, std::string_view user);
bool ParseWorkstationLine(std::string_view line, std::string& workstation, std::string& user);

}  // namespace lantos
