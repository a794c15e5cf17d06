#include "frame/Dates.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <chrono>
#include <vector>

#include "frame/Text.h"

namespace lantos {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr sys_days kDayZero = std::chrono::year{1899} / 12 / 30;

constexpr std::array<std::string_view, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                       "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> kMonths = {"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};

}  // namespace

FileDate ToFileDate(DaySerial day) { return day + kFileDateBase; }

DaySerial FromFileDate(FileDate value) { return value > kFileDateBase ? value - kFileDateBase : value; }

DaySerial ToSerial(const CivilDate& date) {
  const auto civil = std::chrono::year{date.year} / date.month / date.day;
  return static_cast<DaySerial>((sys_days{civil} - kDayZero).count());
}

CivilDate FromSerial(DaySerial day) {
  const std::chrono::year_month_day civil{kDayZero + days{day}};
  return {static_cast<int>(civil.year()), static_cast<int>(static_cast<unsigned>(civil.month())),
          static_cast<int>(static_cast<unsigned>(civil.day()))};
}

bool IsValid(const CivilDate& date) {
  if (date.year < 100 || date.year > 9999 || date.month < 1 || date.month > 12 || date.day < 1) return false;
  return (std::chrono::year{date.year} / date.month / date.day).ok();
}

int WeekdayIndex(DaySerial day) {
  // Day 0 was a Saturday.
  const int index = (day % 7 + 6) % 7;
  return index < 0 ? index + 7 : index;
}

std::string FormatDate(DaySerial day) {
  const CivilDate date = FromSerial(day);
  return fmt::format("{:02}/{:02}/{:04}", date.month, date.day, date.year);
}

namespace {

std::string_view ShortWeekday(DaySerial day) {
  return kWeekdays[static_cast<std::size_t>(WeekdayIndex(day))].substr(0, 3);
}

}  // namespace

std::string FormatPanelDate(DaySerial day) {
  const CivilDate date = FromSerial(day);
  return fmt::format("{} {}/{}", ShortWeekday(day), date.month, date.day);
}

std::string FormatDateWithWeekday(DaySerial day) { return fmt::format("{} {}", ShortWeekday(day), FormatDate(day)); }

std::string FormatLongDate(DaySerial day) {
  const CivilDate date = FromSerial(day);
  return fmt::format("{}, {} {}, {}", kWeekdays[static_cast<std::size_t>(WeekdayIndex(day))],
                     kMonths[static_cast<std::size_t>(date.month - 1)], date.day, date.year);
}

std::string FormatIsoDate(DaySerial day) {
  const CivilDate date = FromSerial(day);
  return fmt::format("{:04}-{:02}-{:02}", date.year, date.month, date.day);
}

namespace {

std::optional<int> ToInt(std::string_view digits) {
  int value = 0;
  const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (end.ec != std::errc{} || end.ptr != digits.data() + digits.size() || value < 0) return std::nullopt;
  return value;
}

int MonthByName(std::string_view name) {
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (name.size() >= 3 && name.size() <= kMonths[i].size() &&
        EqualsIgnoringCase(kMonths[i].substr(0, name.size()), name)) {
      return static_cast<int>(i + 1);
    }
  }
  return 0;
}

int WholeYear(int year, std::size_t digits) {
  if (digits > 2) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

std::optional<DaySerial> SerialIfValid(const CivilDate& date) {
  if (!IsValid(date)) return std::nullopt;
  return ToSerial(date);
}

std::vector<std::string_view> SplitDate(std::string_view text) {
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find_first_of("/-. ,", start), text.size());
    if (end > start) parts.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

}  // namespace

std::optional<DaySerial> ParseDate(std::string_view text, int defaultYear) {
  const std::string_view trimmed = TrimView(text);
  if (trimmed.find_first_not_of("0123456789/-. ,abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ") !=
      std::string_view::npos) {
    return std::nullopt;
  }
  const std::vector<std::string_view> parts = SplitDate(trimmed);
  if (parts.size() < 2 || parts.size() > 3 || (parts.size() == 2 && defaultYear == 0)) return std::nullopt;
  std::array<std::string_view, 3> fields{};
  for (std::size_t i = 0; i < parts.size(); ++i) fields[i] = parts[i];

  int namedMonth = MonthByName(fields[0]);
  if (namedMonth == 0 && (namedMonth = MonthByName(fields[1])) != 0) std::swap(fields[0], fields[1]);
  const bool yearFirst = namedMonth == 0 && fields[0].size() == 4;
  if (yearFirst && parts.size() == 3) fields = {fields[1], fields[2], fields[0]};

  const std::optional<int> month = namedMonth != 0 ? namedMonth : ToInt(fields[0]);
  const std::optional<int> day = ToInt(fields[1]);
  const std::optional<int> year = parts.size() == 3 ? ToInt(fields[2]) : defaultYear;
  if (!month || !day || !year) return std::nullopt;
  return SerialIfValid({parts.size() == 3 ? WholeYear(*year, fields[2].size()) : *year, *month, *day});
}

std::optional<DaySerial> ParseIsoDate(std::string_view text) {
  if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  if (text.size() > 10 && text[10] != ' ' && text[10] != 'T') return std::nullopt;
  const auto year = ToInt(text.substr(0, 4));
  const auto month = ToInt(text.substr(5, 2));
  const auto day = ToInt(text.substr(8, 2));
  if (!year || !month || !day) return std::nullopt;
  return SerialIfValid({*year, *month, *day});
}

}  // namespace lantos
