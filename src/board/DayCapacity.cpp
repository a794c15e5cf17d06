#include "board/DayCapacity.h"

#include <stdexcept>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::array<std::string_view, kWeekdays> kHourColumns = {"SunHours", "MonHours", "TueHours", "WedHours",
                                                                  "ThuHours", "FriHours", "SatHours"};
constexpr std::int32_t kNoSpecialDay = -1;

std::array<Hundredths, kWeekdays> ReadStandardHours(const Recordset& row) {
  std::array<Hundredths, kWeekdays> hours{};
  for (std::size_t i = 0; i < kWeekdays; ++i) hours[i] = RoundHalfEven(row.Number(kHourColumns[i]) * 100);
  return hours;
}

// Rounded to whole hours before anything else, so that half an hour is none.
std::int32_t WholeSpecialHours(const Recordset& row) { return RoundHalfEven(row.Number("SpecialHours")); }

}  // namespace

void DayCapacity::LoadStandardHours(de& database) {
  Recordset& row = database.GetStdHours();
  AvailableHours = ReadStandardHours(row);
  FudgeFactor = RoundHalfEven(row.Number("FudgeFactor"));
  row.Close();
}

void DayCapacity::LoadSpecialDay(de& database, DaySerial date, std::size_t weekday) {
  Recordset& row = database.SpecialDaysByDate(date);
  if (row.Eof()) {
    DayComment.at(weekday).clear();
  } else {
    AvailableHours.at(weekday) = RoundHalfEven(WholeSpecialHours(row) * 100.0);
    DayComment.at(weekday) = Trim(row.Text("SpecialDesc"));
  }
  row.Close();
}

ui::Color ClassifyDay(Hundredths available, std::int64_t scheduled, std::int32_t fudgeFactor) {
  if (available == 0) return scheduled == 0 ? kDayClosed.color : kDayClosedWithWork.color;
  const Hundredths low = RoundHalfEven(available * (1 - fudgeFactor / 100.0));
  const Hundredths high = RoundHalfEven(available * (1 + fudgeFactor / 100.0));
  if (low <= scheduled && scheduled <= high) return kDayGood.color;
  return scheduled > high ? kDayOver.color : kDayUnder.color;
}

std::string_view DayStatusText(ui::Color color) {
  for (const DayResult& result : {kDayClosed, kDayClosedWithWork, kDayGood, kDayUnder, kDayOver}) {
    if (result.color == color) return result.word;
  }
  return "Unknown";
}

DaySerial NextBusinessDay(de& database, DaySerial date) {
  Recordset& standard = database.GetStdHours();
  const std::array<Hundredths, kWeekdays> standardHours = ReadStandardHours(standard);
  standard.Close();
  constexpr DaySerial kFarthest = 3660;  // ten years
  for (DaySerial day = date + 1; day <= date + kFarthest; ++day) {
    Recordset& row = database.SpecialDaysByDate(day);
    const std::int32_t special = row.Eof() ? kNoSpecialDay : WholeSpecialHours(row);
    row.Close();
    // Special hours count in whole hours, standard ones in hundredths: half a standard hour opens the day.
    const Hundredths hours = standardHours[static_cast<std::size_t>(WeekdayIndex(day))];
    if (special >= 1 || (special == kNoSpecialDay && hours >= 1)) return day;
  }
  throw std::runtime_error("The shop has no open day in the ten years after " + FormatDate(date) +
                           ". See Maintenance, System, Standard Hours.");
}

}  // namespace lantos
