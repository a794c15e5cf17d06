#pragma once

#include <filesystem>
#include <string_view>

namespace lantos {

// A folder that is installed with the programs: share/lantos/<folder>, beside the folder that the running program lies
// in. It need not be there.
std::filesystem::path InstalledFolder(std::string_view folder);

}  // namespace lantos
