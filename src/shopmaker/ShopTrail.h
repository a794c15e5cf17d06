#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

#include "frame/Clock.h"

namespace lantos {

// Takes the changes of the days before one off the trail of a shop's database, and says how many they were. Throws
// ShopError, nothing touched, for a day that is still to come and for a directory without the database; DatabaseError.
// look is called behind the connecting, which may take long; what it throws ends it.
std::int64_t PruneShopTrail(
    const std::filesystem::path& directory, DaySerial firstKept, Clock& clock,
    const std::function<void()>& look = [] {});

}  // namespace lantos
