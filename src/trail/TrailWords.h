#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/Trail.h"

namespace lantos {

// What a change is about; the list of the trail is filtered by it.
enum class TrailKind { Booking, Status, Labor, Parts, Extras, Notes, ShopDays };
inline constexpr std::size_t kTrailKinds = 7;
std::string_view WordOf(TrailKind kind);

TrailKind KindOf(const TrailEntry& entry);
// "labor 2 removed: BRAKES 1.50 h"
std::string WordsOf(const TrailEntry& entry);
// What a line says that was taken away and came again at once: "labor 2 changed: BRAKES 1.50 h to BRAKES 2.00 h". Empty
// when the two are of different lines.
std::string WordsOfChangedLine(const TrailEntry& removed, const TrailEntry& added);
// "moved from 09/30 to 10/02", of the comments that name the day, and the day of the estimate. Empty when these
// comments name none, or named it before.
std::string WordsOfMove(const TrailEntry& comments);

// The first of the rows; one without columns when there is none.
const TrailRow& FirstOf(const std::vector<TrailRow>& rows);

}  // namespace lantos
