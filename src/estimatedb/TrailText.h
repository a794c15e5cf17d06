#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/Trail.h"

namespace lantos {

// Rows as the text that the trail's table keeps, and back: a list of objects in JSON, a date as its ISO text. No rows
// are an empty text. A text that isn't such a list (another program's hand) has no rows.
std::string TrailText(const std::vector<TrailRow>& rows);
std::vector<TrailRow> TrailRows(std::string_view text);

}  // namespace lantos
