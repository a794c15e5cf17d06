#pragma once

#include "board/Board.h"

namespace lantos {

// Lets the person look for an estimate of a customer. Week, day, calendar and detail view then stand on the one chosen.
void FindEstimate(const BoardParts& parts, Board& board);

// Shows the technicians' hours of the day that the board is on.
void LookAtTechHours(const BoardParts& parts);

}  // namespace lantos
