#pragma once

#include "board/Board.h"
#include "frame/Options.h"

namespace lantos {

// What goes on paper from the board, and the status that follows from it.
class Papers {
 public:
  Papers(const BoardParts& parts, Board& board) : parts_(parts), board_(board) {}

  void PrintEstimate();
  void PrintWorksheet();
  void PrintDay();

 private:
  void ReadPrintOptions();
  void FillDetail();
  bool MayPrintWorksheet();
  void FollowPrint(StatusOption option, const char* question, std::int16_t status);
  Estimate& Current() { return parts_.database.estimates.CurrentEstimate; }

  BoardParts parts_;
  Board& board_;
};

}  // namespace lantos
