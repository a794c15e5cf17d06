#pragma once

#include <cstdint>
#include <string_view>

#include "shop/Records.h"

namespace lantos {

// Puts a new employee on file, with the next running number, no dates and no pay records. Returns the number. Throws
// FileError; the number isn't given again then.
std::int32_t AddNewEmployee(Records& records, std::string_view name);

}  // namespace lantos
