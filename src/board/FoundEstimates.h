#pragma once

#include <optional>
#include <string>
#include <vector>

#include "estimatedb/EstimateDatabase.h"
#include "records/Vehicles.h"
#include "shop/Shop.h"

namespace lantos {

// The estimates of a customer as lines of a list.
struct FoundEstimates {
  struct Line {
    std::string text;
    std::int32_t estimate = 0;
  };
  std::size_t count = 0;  // of the estimates
  std::vector<Line> lines;
};

// By day: a line of each estimate, one of each of its labor, and one that closes it. The status stands in the line
// behind the first; a past Scheduled one reads as a No-show. With a vehicle only the estimates of that one. No working
// record is touched. Throws DatabaseError.
FoundEstimates FindEstimates(Shop& shop, EstimateDatabase& database, std::int32_t customer,
                             std::optional<FileLink> vehicle);

// Year, make, model and the first comment, joined by blanks.
std::string DescriptionOf(const VehicleRecord& vehicle);

}  // namespace lantos
