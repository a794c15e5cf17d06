#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "frame/Types.h"

namespace lantos {

// A moment of local time.
struct LocalTime {
  DaySerial day = 0;
  std::int64_t millisecondOfDay = 0;

  bool operator==(const LocalTime&) const = default;
  auto operator<=>(const LocalTime&) const = default;
  LocalTime PlusMilliseconds(std::int64_t milliseconds) const;
  std::int64_t MillisecondsSince(const LocalTime& earlier) const;
};

std::string FormatTime(const LocalTime& time);      // "HH:mm:ss"
std::string FormatDateTime(const LocalTime& time);  // "mm/dd/yyyy HH:mm:ss"
// "2003-09-30T08:15:00"; empty when it is no such text.
std::optional<LocalTime> ParseLocalTime(std::string_view text);

// The only source of the time. Handed in; nothing else reads it.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalTime Now() const = 0;
  // Lets time pass inside the program. A standing clock moves on by itself, and a little real time passes too.
  virtual void Wait(std::int64_t milliseconds) = 0;  // 0 or more

  DaySerial Today() const { return Now().day; }
};

class SystemClock : public Clock {
 public:
  LocalTime Now() const override;
  void Wait(std::int64_t milliseconds) override;
};

// Stands still and moves only when told.
class StandingClock : public Clock {
 public:
  explicit StandingClock(LocalTime at) : now_(at) {}
  LocalTime Now() const override { return now_; }
  void Wait(std::int64_t milliseconds) override;
  void MoveTo(LocalTime at) { now_ = at; }
  void MoveOn(std::int64_t milliseconds) { now_ = now_.PlusMilliseconds(milliseconds); }

 private:
  LocalTime now_;
};

// Until the clock's second differs from its value at the start: at most one second.
void WaitOneSecond(Clock& clock);

}  // namespace lantos
