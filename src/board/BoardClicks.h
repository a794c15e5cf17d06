#pragma once

#include "board/Board.h"
#include "board/DayRollover.h"
#include "board/StatusByHand.h"

namespace lantos {

// What clicks do on calendar, panels, lists and the choices above the day list, and what follows when a row becomes the
// selected one.
class BoardClicks {
 public:
  BoardClicks(const BoardParts& parts, Board& board, BoardMenus& menus, StatusByHand& status,
              const DayRollover& rollover);

  // The panel's day becomes the one of calendar, board and day view.
  void PanelClick(std::size_t weekday);

 private:
  void WireCalendar();
  void WirePanels();
  void WireRightButton();
  void LoadClicked(DaySerial date);
  bool IsLoadedByClick(DaySerial date) const;
  void OpenClickedDay();
  void WeekListClick(std::size_t weekday);
  void WeekListDoubleClick(std::size_t weekday);
  void DayListClick();
  void Choose(ui::ListBox& clicked, std::int32_t estimate);
  void OpenDetail();
  void WeekListRightClick(std::size_t weekday);
  void DayListRightClick();

  BoardParts parts_;
  Board& board_;
  BoardMenus& menus_;
  StatusByHand& status_;
  const DayRollover& rollover_;
  DaySerial loadedByClick_ = kNoDay;
  bool marking_ = false;  // a row is selected to show what is current, and chooses nothing
};

}  // namespace lantos
