#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "records/RecordMerge.h"
#include "records/modEmployees.h"
#include "shop/Shop.h"

namespace lantos {

// Stores the fields of an employee that a screen has read and a person changed, since others may have stored them
// meanwhile (see RecordMerge; title is that of its question). Nothing when the person goes back to the screen. Throws
// FileError.
std::optional<modEmployees::Updated> StoreEmployee(Shop& shop, std::int32_t number, std::span<const MergedField> fields,
                                                   const EmployeeRecord& read, const EmployeeRecord& ours,
                                                   const std::string& title);

}  // namespace lantos
