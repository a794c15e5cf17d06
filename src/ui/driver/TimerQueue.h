#pragma once

#include <vector>

#include "frame/Clock.h"
#include "ui/Form.h"

namespace lantos::ui {

// When the timers of the loaded forms fall due. A timer runs its full interval from the moment it is first seen
// running, and again from the end of each tick.
class TimerQueue {
 public:
  // Takes in timers that were started, stopped or set anew since the last look.
  void Look(const std::vector<Form*>& forms, LocalTime now);
  // The timer that falls due first, of several at once the one of the lower form; null when none runs.
  Timer* First() const;
  LocalTime DueOf(const Timer& timer) const;
  void Restart(const Timer& timer, LocalTime now);

 private:
  struct Entry {
    Timer* timer;
    int interval;
    int starts;
    LocalTime due;
  };
  std::vector<Entry> entries_;
};

}  // namespace lantos::ui
