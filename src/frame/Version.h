#pragma once

#include <string>

namespace lantos {

// "2001.0.0": the program's years are counted from 2000.
std::string ProgramVersion();

}  // namespace lantos
