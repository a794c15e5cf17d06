#pragma once

#include <string>
#include <vector>

#include "trail/TrailDeeds.h"

namespace lantos {

// The deeds as comma-separated values for a spreadsheet: a heading, and one record a deed with time, workstation, user,
// estimate, kind and words. Quotes are doubled, records end with CR LF. UTF-8 with its mark ahead. A text that a
// spreadsheet would take for a formula has an apostrophe ahead.
std::string TrailAsCsv(const std::vector<TrailDeed>& deeds);

}  // namespace lantos
