#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/engine/Recordset.h"

namespace lantos {

// A statement and its values as the run log has them behind an engine's refusal.
std::string StatementForLog(std::string_view statement, const std::vector<Value>& parameters);

}  // namespace lantos
