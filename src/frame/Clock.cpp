#include "frame/Clock.h"

#include <fmt/format.h>

#include <charconv>
#include <chrono>
#include <ctime>
#include <thread>

#include "frame/Dates.h"

namespace lantos {

namespace {

constexpr std::int64_t kMillisecondsADay = 24LL * 60 * 60 * 1000;
// What a standing clock lets pass in reality, so that another process gets its turn.
constexpr std::int64_t kRealMillisecondsOfAWait = 3;

}  // namespace

LocalTime LocalTime::PlusMilliseconds(std::int64_t milliseconds) const {
  std::int64_t total = millisecondOfDay + milliseconds;
  std::int64_t days = total / kMillisecondsADay;
  total %= kMillisecondsADay;
  if (total < 0) {
    total += kMillisecondsADay;
    --days;
  }
  return {static_cast<DaySerial>(day + days), total};
}

std::int64_t LocalTime::MillisecondsSince(const LocalTime& earlier) const {
  return (static_cast<std::int64_t>(day) - earlier.day) * kMillisecondsADay + millisecondOfDay -
         earlier.millisecondOfDay;
}

std::string FormatTime(const LocalTime& time) {
  const std::int64_t seconds = time.millisecondOfDay / 1000;
  return fmt::format("{:02}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

std::string FormatDateTime(const LocalTime& time) { return FormatDate(time.day) + " " + FormatTime(time); }

std::optional<LocalTime> ParseLocalTime(std::string_view text) {
  const auto day = ParseIsoDate(text);
  if (!day) return std::nullopt;
  if (text.size() == 10) return LocalTime{*day, 0};
  if (text.size() < 19 || text[13] != ':' || text[16] != ':') return std::nullopt;
  const auto part = [&](std::size_t at) {
    int value = -1;
    const auto end = std::from_chars(text.data() + at, text.data() + at + 2, value);
    return end.ec == std::errc{} && end.ptr == text.data() + at + 2 ? value : -1;
  };
  const int hour = part(11);
  const int minute = part(14);
  const int second = part(17);
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return std::nullopt;
  std::int64_t fraction = 0;
  if (text.size() > 19) {
    if (text[19] != '.' || text.size() == 20 || text.size() > 23) return std::nullopt;
    std::string digits(text.substr(20));
    digits.resize(3, '0');
    const auto end = std::from_chars(digits.data(), digits.data() + 3, fraction);
    if (end.ptr != digits.data() + 3) return std::nullopt;
  }
  return LocalTime{*day, ((hour * 60 + minute) * 60 + second) * 1000LL + fraction};
}

LocalTime SystemClock::Now() const {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&seconds, &local);
  const auto fraction =
      std::chrono::duration_cast<std::chrono::milliseconds>(now - std::chrono::system_clock::from_time_t(seconds));
  return {ToSerial({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}),
          ((local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec) * 1000LL + fraction.count()};
}

void SystemClock::Wait(std::int64_t milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void StandingClock::Wait(std::int64_t milliseconds) {
  MoveOn(milliseconds);
  std::this_thread::sleep_for(std::chrono::milliseconds(kRealMillisecondsOfAWait));
}

void WaitOneSecond(Clock& clock) {
  const std::string start = FormatTime(clock.Now());
  while (FormatTime(clock.Now()) == start) {
    // Up to the next full second, but never long at a time: the clock may be set meanwhile.
    clock.Wait(std::min<std::int64_t>(1000 - clock.Now().millisecondOfDay % 1000, 1000));
  }
}

}  // namespace lantos
