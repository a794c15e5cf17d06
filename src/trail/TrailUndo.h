#pragma once

#include <optional>
#include <string>
#include <vector>

#include "estimatedb/de.h"
#include "trail/TrailDeeds.h"

namespace lantos {

// The newest deed that the person has done and can take back: a move, a status, a line that was removed. What was taken
// back already is passed over.
std::optional<TrailDeed> LastToUndo(const std::vector<TrailDeed>& newestFirst, const TrailAuthor& author);

// The estimate that a move or a continuation made, which goes with it; 0 when there is none. Throws DatabaseError.
std::int32_t CopyMadeBy(de& database, const TrailDeed& deed);

// Makes the counter-change of the deed through the commands of the database, all of it or nothing, which puts it on the
// trail too. A copy is cancelled. Looks in the same transaction whether somebody has changed the same since: then
// nothing is changed, and who, when and what comes back in words. Empty when it was taken back. Throws DatabaseError.
std::string Undo(de& database, const TrailDeed& deed, DaySerial today);

}  // namespace lantos
