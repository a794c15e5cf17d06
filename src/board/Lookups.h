#pragma once

#include "board/Board.h"

namespace lantos {

// Lets the person look for an estimate of a customer. Week, day, calendar and detail view then stand on the one chosen.
void FindEstimate(const BoardParts& parts, Board& board);

// Week, day, calendar and detail view on that estimate. False, and the board as it was, when it is gone, which is told
// under the title.
bool ShowEstimate(const BoardParts& parts, Board& board, std::int32_t number, const std::string& title);

// Shows the technicians' hours of the day that the board is on.
void LookAtTechHours(const BoardParts& parts);

}  // namespace lantos
