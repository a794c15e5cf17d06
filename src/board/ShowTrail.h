#pragma once

#include "board/Board.h"

namespace lantos {

// Shows who changed what of the current estimate, or of the whole shop where there is none. The board follows what is
// taken back there.
void ShowTrail(const BoardParts& parts, Board& board);

}  // namespace lantos
