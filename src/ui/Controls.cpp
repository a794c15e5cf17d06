#include "ui/Controls.h"

#include <algorithm>

#include "frame/Dates.h"
#include "frame/Text.h"
#include "ui/Form.h"

namespace lantos::ui {

void Captioned::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Changed(Aspect::Caption);
}

void CheckBox::SetValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  Changed(Aspect::Value);
  FireClick();
}

void CheckBox::DoClick() {
  Owner().Run([this] { SetValue(!value_); });
}

void OptionButton::SetValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  Changed(Aspect::Value);
  if (!value) return;
  for (Control* other : Owner().Controls()) {
    auto* option = dynamic_cast<OptionButton*>(other);
    if (option == nullptr || option == this || option->Container() != Container() || !option->value_) continue;
    option->value_ = false;
    option->Changed(Aspect::Value);
  }
  FireClick();
}

void OptionButton::DoClick() {
  Owner().Run([this] { SetValue(true); });
}

void ProgressBar::SetRange(int maximum) {
  maximum_ = std::max(maximum, 1);
  Changed(Aspect::Value);
}

void ProgressBar::SetValue(int value) {
  value_ = std::clamp(value, 0, maximum_);
  Changed(Aspect::Value);
}

void Timer::SetInterval(int milliseconds) {
  interval_ = std::max(milliseconds, 0);
  ++starts_;
  Changed(Aspect::Value);
}

void Timer::DoTick() {
  if (ticking_ || !Enabled()) return;
  ticking_ = true;
  Owner().Run([this] {
    if (OnTimer) OnTimer();
  });
  ticking_ = false;
}

void MonthView::SetValue(DaySerial day) {
  if (value_ == day) return;
  value_ = day;
  Changed(Aspect::Date);
}

namespace {

constexpr int kLongestMonth = 31;
constexpr DaySerial kDaysAWeek = 7;

// The same day of another month, or the last one that it has.
DaySerial MonthsOn(DaySerial day, int months) {
  CivilDate date = FromSerial(day);
  const int month = date.year * 12 + date.month - 1 + months;
  date.year = month / 12;
  date.month = month % 12 + 1;
  while (date.day > 1 && !IsValid(date)) --date.day;
  return ToSerial(date);
}

DaySerial EndOfMonth(DaySerial day) {
  CivilDate date = FromSerial(day);
  date.day = kLongestMonth;
  while (!IsValid(date)) --date.day;
  return ToSerial(date);
}

// The day that a key leads to; the day itself when it is no key of movement.
DaySerial DayBy(DaySerial day, std::string_view key) {
  if (key == "Left") return day - 1;
  if (key == "Right") return day + 1;
  if (key == "Up") return day - kDaysAWeek;
  if (key == "Down") return day + kDaysAWeek;
  if (key == "PgUp") return MonthsOn(day, -1);
  if (key == "PgDn") return MonthsOn(day, 1);
  if (key == "Home") return day - FromSerial(day).day + 1;
  return key == "End" ? EndOfMonth(day) : day;
}

constexpr int kMonthsAYear = 12;

DaySerial PartChanged(DaySerial day, DTPicker::Part part, int step) {
  if (part == DTPicker::Part::Day) return day + step;
  return MonthsOn(day, part == DTPicker::Part::Month ? step : step * kMonthsAYear);
}

}  // namespace

bool MonthView::DoKey(const KeyPress& key) {
  const bool plain = !key.control && !key.alt && !key.cleared;
  const DaySerial day = plain ? DayBy(value_, key.key) : value_;
  if (day != value_) {
    SetValue(day);
    Owner().Run([&] {
      if (OnMarkMoved) OnMarkMoved();
    });
    return true;
  }
  const bool isText = key.key.size() == 1 || key.key == "Space" || key.key == "Backspace" || key.key == "Delete";
  return isText ? plain : DayBy(value_, key.key) != value_ || key.key == "Home" || key.key == "End";
}

void MonthView::DoPick(DaySerial day) {
  SetValue(day);
  Owner().Run([&] {
    if (OnDateClick) OnDateClick(day);
  });
}

void MonthView::DoDoublePick(DaySerial day) {
  DoPick(day);
  Owner().Run([&] {
    if (OnDateDoubleClick) OnDateDoubleClick(day);
  });
}

void DTPicker::SetValue(DaySerial day) {
  if (value_ == day) return;
  value_ = day;
  Changed(Aspect::Date);
  if (OnChange) OnChange();
}

void DTPicker::SetCurrentPart(Part part) {
  if (part_ == part) return;
  part_ = part;
  Changed(Aspect::Selection);
}

bool DTPicker::DoKey(const KeyPress& key) {
  if (key.Is("Left") || key.Is("Right")) {
    const int part = static_cast<int>(part_) + (key.Is("Left") ? -1 : 1);
    SetCurrentPart(static_cast<Part>(std::clamp(part, 0, static_cast<int>(Part::Year))));
  } else if (key.Is("Up") || key.Is("Down")) {
    DoPick(PartChanged(value_, part_, key.Is("Up") ? 1 : -1));
  } else if (key.Is("PgUp") || key.Is("PgDn")) {
    DoPick(MonthsOn(value_, key.Is("PgUp") ? -1 : 1));
  } else {
    return DayBy(0, key.key) != 0 || key.key == "Home" || key.key == "End";
  }
  return true;
}

void DTPicker::DoPick(DaySerial day) {
  Owner().Run([&] { SetValue(day); });
}

}  // namespace lantos::ui
