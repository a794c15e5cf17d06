#include "ui/Controls.h"

#include <algorithm>

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

void DTPicker::DoPick(DaySerial day) {
  Owner().Run([&] { SetValue(day); });
}

}  // namespace lantos::ui
