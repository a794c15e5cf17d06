#pragma once

#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

namespace lantos {

// Takes away, and tells, what backups and verifications that were killed have left in a folder: their scratch folders,
// and the archives that they had begun. isMeant is asked for the name of the archive that each belongs to. A folder
// that somebody alive works in stays (ScratchFolder); so does every one where that can't be told, as on a network
// share.
std::vector<std::filesystem::path> ClearLeftOvers(const std::filesystem::path& folder,
                                                  const std::function<bool(std::string_view archive)>& isMeant);

}  // namespace lantos
