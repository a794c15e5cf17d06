#include "board/CalendarKeys.h"

namespace lantos {

namespace {

constexpr int kRest = 500;  // milliseconds
constexpr DaySerial kDaysAWeek = 7;

struct Stride {
  std::string_view key;
  DaySerial days;
};
constexpr Stride kStrides[] = {{"Left", -1}, {"Right", 1}, {"PgUp", -kDaysAWeek}, {"PgDn", kDaysAWeek}};

}  // namespace

CalendarKeys::CalendarKeys(const BoardParts& parts, Board& board, ui::Timer& rest)
    : parts_(parts), board_(board), rest_(rest) {
  parts_.calendar.SetSpokenName("Calendar");
  parts_.calendar.SetToolTip(
      "A day back <Alt+Left>, a day on <Alt+Right>, a week back <Alt+PgUp>, a week on <Alt+PgDn>, today <Alt+Home>");
  parts_.calendar.OnMarkMoved = [this] { MarkMoved(); };
  parts_.calendar.OnLostFocus = [this] { Follow(); };
  rest_.OnTimer = [this] { Follow(); };
}

void CalendarKeys::MarkMoved() {
  ahead_ = true;
  rest_.SetInterval(kRest);
}

void CalendarKeys::Follow() {
  rest_.SetInterval(0);
  if (!std::exchange(ahead_, false) || BoardStandsOn(parts_.calendar.Value())) return;
  try {
    board_.LoadWeek(parts_.calendar.Value());
  } catch (...) {
    parts_.calendar.SetValue(parts_.state.dayOnShow);
    throw;
  }
  if (parts_.detail.frameDetailView.Visible()) board_.ShowWeekView();
}

// A click on an estimate brings its day on show without a load, and its hours may stand there alone.
bool CalendarKeys::BoardStandsOn(DaySerial date) const {
  const BoardState& state = parts_.state;
  return state.currentDate == date && state.dayOnShow == date && parts_.hours.Day() == date;
}

bool CalendarKeys::Press(const ui::KeyPress& key) {
  DaySerial day = kNoDay;
  if (key.IsAlt("Home")) day = parts_.shop.environment.Today();
  for (const Stride& stride : kStrides) {
    if (key.IsAlt(stride.key)) day = parts_.calendar.Value() + stride.days;
  }
  if (day == kNoDay) return false;
  parts_.calendar.SetValue(day);
  ahead_ = true;
  Follow();
  return true;
}

}  // namespace lantos
