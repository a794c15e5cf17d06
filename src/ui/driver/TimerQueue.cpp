#include "ui/driver/TimerQueue.h"

#include <algorithm>

namespace lantos::ui {

void TimerQueue::Look(const std::vector<Form*>& forms, LocalTime now) {
  std::vector<Entry> seen;
  for (const Form* form : forms) {
    for (Control* control : form->Controls()) {
      auto* timer = dynamic_cast<Timer*>(control);
      if (timer == nullptr || !timer->Enabled() || timer->Interval() <= 0) continue;
      const auto known = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.timer == timer && entry.starts == timer->Starts();
      });
      const int interval = timer->Interval();
      seen.push_back(known != entries_.end() ? *known
                                             : Entry{timer, interval, timer->Starts(), now.PlusMilliseconds(interval)});
    }
  }
  entries_ = std::move(seen);
}

Timer* TimerQueue::First() const {
  const auto first =
      std::min_element(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) { return a.due < b.due; });
  return first == entries_.end() ? nullptr : first->timer;
}

LocalTime TimerQueue::DueOf(const Timer& timer) const {
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.timer == &timer; });
  return found == entries_.end() ? LocalTime{} : found->due;
}

void TimerQueue::Restart(const Timer& timer, LocalTime now) {
  for (Entry& entry : entries_) {
    if (entry.timer == &timer) entry.due = now.PlusMilliseconds(entry.interval);
  }
}

}  // namespace lantos::ui
