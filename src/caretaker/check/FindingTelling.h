#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "caretaker/check/Finding.h"

namespace lantos {

// A list of objects with kind, file, record, field, words and repair: what makes it good, or null.
nlohmann::ordered_json JsonOf(const std::vector<Finding>& findings);
// "1 fault", "12 faults".
std::string CountOf(const std::vector<Finding>& findings);

}  // namespace lantos
