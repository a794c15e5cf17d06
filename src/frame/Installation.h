#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace lantos {

// A folder that is installed with the programs: share/lantos/<folder>, beside the folder that the running program lies
// in. It need not be there.
std::filesystem::path InstalledFolder(std::string_view folder);

// The name that this run was started under: without its folder and without the ending behind its last point.
std::string ProgramName();

}  // namespace lantos
