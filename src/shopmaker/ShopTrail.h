#pragma once

#include <cstdint>
#include <filesystem>

#include "frame/Clock.h"

namespace lantos {

// Takes the changes of the days before one off the trail of a shop's database, and says how many they were. Throws
// ShopError, nothing touched, for a day that is still to come and for a directory without the database; DatabaseError.
std::int64_t PruneShopTrail(const std::filesystem::path& directory, DaySerial firstKept, Clock& clock);

}  // namespace lantos
