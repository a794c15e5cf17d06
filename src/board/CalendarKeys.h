#pragma once

#include "board/Board.h"

namespace lantos {

// The calendar by keyboard. The mark moves at once; the board follows when it has rested for half a second, or when
// something is about to be done with the day. The view stays, but for the detail view, which a load of the week
// empties.
class CalendarKeys {
 public:
  CalendarKeys(const BoardParts& parts, Board& board, ui::Timer& rest);
  CalendarKeys(const CalendarKeys&) = delete;

  // Wherever the focus is: Alt with the arrows goes a day on, with PgUp and PgDn a week, with Home to today. True when
  // it was one of these keys.
  bool Press(const ui::KeyPress& key);
  // The board goes to the marked day. When the week can't be read the mark goes back, and DatabaseError is thrown.
  void Follow();

 private:
  void MarkMoved();
  bool BoardStandsOn(DaySerial date) const;

  BoardParts parts_;
  Board& board_;
  ui::Timer& rest_;
  bool ahead_ = false;  // the mark, of the board
};

}  // namespace lantos
