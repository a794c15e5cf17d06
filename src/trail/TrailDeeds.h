#pragma once

#include <string>
#include <vector>

#include "trail/TrailWords.h"

namespace lantos {

// What a person did, though the program may have made several changes of it.
struct TrailDeed {
  // Move, Status and Removal can be taken back.
  enum class Kind { Other, Move, Status, Removal, TakingBack };

  LocalTime at;
  TrailAuthor author;
  std::int32_t estimate = 0;
  TrailKind about = TrailKind::Booking;
  Kind kind = Kind::Other;
  std::string words;                // "labor 2 removed: BRAKES 1.50 h"
  std::vector<TrailEntry> entries;  // what it is made of, in their order

  std::int32_t First() const { return entries.front().number; }
  std::int32_t Last() const { return entries.back().number; }
};

// Entries that come the newest first, as deeds, the newest first. Changes that belong together, of one person and one
// estimate within two seconds, are one: a line that was removed and added again was changed, a status and the comments
// that name another day were a move.
std::vector<TrailDeed> DeedsOf(std::vector<TrailEntry> newestFirst);

// "Tue 10:32": the weekday alone within a week before today, else the date.
std::string WhenOf(const TrailDeed& deed, DaySerial today);
// "Tue 10:32 FRONTDESK moved from 09/30 to 10/02", with the user behind the workstation where one is known.
std::string Sentence(const TrailDeed& deed, DaySerial today);

}  // namespace lantos
