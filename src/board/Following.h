#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "board/Board.h"
#include "board/FollowedNames.h"
#include "estimatedb/ChangeFeed.h"
#include "ui/Controls.h"

namespace lantos {

// What others change is shown here by itself, where the week or the estimate on show is concerned, and the customers'
// names where their file has changed; anything else is read by nobody. While the person is in the middle of something
// (a box, a menu, another screen) it waits. Where it is off there is no timer, and nobody is asked.
class Following {
 public:
  // Free says whether the person is in the middle of nothing. All of it outlives this.
  Following(const BoardParts& parts, Board& board, ui::Timer& timer, ui::Label& told, std::function<bool()> isFree);

  bool IsOn() const { return feed_.has_value(); }
  // From now on; the board is loaded behind it. A database that can't be followed just then is noted in the run log,
  // and not followed.
  void Begin();
  // What was changed before it began, on a board that was loaded earlier.
  void ShowAll();
  void End();

 private:
  void Tick();
  void TellContact();
  // Whether the names are to be shown as their file has them now.
  bool ReadNames();
  // Whether anything had to be read.
  bool Show(const ChangeNews& news, bool areNames);
  void TakeNews();
  int TicksOf(std::chrono::milliseconds time) const;
  bool ConcernsWeek(const ChangeNews& news) const;
  bool ConcernsWeek(const TrailEntry& change) const;
  bool IsInWeek(const TrailRow& row, std::string_view column) const;

  BoardParts parts_;
  Board& board_;
  ui::Timer& timer_;
  ui::Label& told_;
  std::function<bool()> isFree_;
  std::optional<ChangeFeed> feed_;
  ChangeNews waiting_;
  Stale stale_;         // what was changed since the board was filled, by whomever
  std::string reason_;  // why nothing is followed, as the run log has it
  bool stood_ = false;  // the contact, at the last tick
  int rest_ = 0;        // ticks to come without a look at the database, which has failed or was just read
  FollowedNames names_;
  int restOfNames_ = 0;  // the same of their file
};

// "Changed at FRONTDESK 10:32", by who has made a change.
std::string ChangedBy(const TrailEntry& change);

}  // namespace lantos
