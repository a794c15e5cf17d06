#pragma once

#include <string>

#include "frame/FileIO.h"

namespace lantos {

// The log of a copy that runs on this directory, on any workstation; empty when none does. Each copy has its log open
// for as long as it runs, and lets nobody else in.
std::string LogInUse(const FileIO& files);
bool IsLogInUse(const FileIO& files, const std::string& log);

}  // namespace lantos
