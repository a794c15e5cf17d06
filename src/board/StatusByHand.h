#pragma once

#include "board/Board.h"
#include "board/StatusChange.h"

namespace lantos {

class BoardMenus;

// The status of the current estimate, changed by the person's hand: by form, by popup, by another day.
class StatusByHand {
 public:
  StatusByHand(const BoardParts& parts, Board& board, BoardMenus& menus)
      : parts_(parts), board_(board), menus_(menus) {}

  // The popup for an estimate of the lists, which becomes current.
  void PopupOf(std::int32_t estimate);
  // The popup for the current estimate, from the detail view.
  void PopupOnDetail();
  // An entry of the popup.
  void ChangeTo(std::int16_t status);
  // Through the status form.
  void Change();
  // To another day.
  void Reschedule();

 private:
  ContinueEstimate Continuing();
  bool IsGivenUp(const std::string& title);
  Estimate& Current() { return parts_.database.estimates.CurrentEstimate; }

  BoardParts parts_;
  Board& board_;
  BoardMenus& menus_;
  Board::Copy copy_ = Board::Copy::None;  // of the estimate whose status is being changed
};

}  // namespace lantos
