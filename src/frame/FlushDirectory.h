#pragma once

#include <filesystem>

namespace lantos {

// A directory's names, on the disk when it returns; what can't be pushed there is left to the system. An empty path is
// the current directory.
void FlushDirectory(const std::filesystem::path& directory);

}  // namespace lantos
