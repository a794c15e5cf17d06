#include <QCalendarWidget>
#include <QDateEdit>
#include <QProgressBar>
#include <QTableView>

#include "ui/Form.h"
#include "ui/qt/CalendarView.h"
#include "ui/qt/FocusFrame.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/Text.h"
#include "ui/qt/WidgetPeer.h"

namespace lantos::ui {

namespace {

constexpr int kFirstYear = 100;

class MonthPeer : public WidgetPeer {
 public:
  MonthPeer(FormWindow& window, MonthView& control, QCalendarWidget& calendar)
      : WidgetPeer(window, control, calendar), month_(control), calendar_(calendar) {
    calendar_.setFirstDayOfWeek(Qt::Sunday);
    calendar_.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    DaysOf(calendar_).setFrameStyle(QFrame::StyledPanel);  // the room for it
    new FocusFrame(DaysOf(calendar_));
    QObject::connect(&calendar_, &QCalendarWidget::clicked, &calendar_, [this](const QDate& date) {
      if (IsPersonsDoing()) month_.DoPick(FromQt(date));
    });
    // The second click of a double one, or Enter: the first has been served.
    QObject::connect(&calendar_, &QCalendarWidget::activated, &calendar_, [this](const QDate& date) {
      if (!IsPersonsDoing() || !month_.OnDateDoubleClick) return;
      month_.Owner().Run([&] { month_.OnDateDoubleClick(FromQt(date)); });
    });
    QObject::connect(&calendar_, &QCalendarWidget::selectionChanged, &calendar_, [this] {
      if (IsPersonsDoing()) month_.SetValue(FromQt(calendar_.selectedDate()));
    });
  }
  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    state.date = FromQt(calendar_.selectedDate());
  }
  QWidget& MouseTarget() const override { return *DaysOf(calendar_).viewport(); }
  // The days have their own way with the mouse.
  bool HandleMouse(QMouseEvent& /*event*/) override { return false; }

 private:
  void Apply(unsigned aspects) override {
    if (Has(aspects, Aspect::Look)) CalmDown(calendar_);
    if (!Has(aspects, Aspect::Date)) return;
    calendar_.setSelectedDate(ToQt(month_.Value()));
    calendar_.showSelectedDate();
  }
  MonthView& month_;
  QCalendarWidget& calendar_;
};

class PickerPeer : public WidgetPeer {
 public:
  PickerPeer(FormWindow& window, DTPicker& control, QDateEdit& edit)
      : WidgetPeer(window, control, edit), picker_(control), edit_(edit) {
    edit_.setCalendarPopup(true);
    edit_.setMinimumDate(QDate(kFirstYear, 1, 1));  // its own begins with the Gregorian calendar of 1752
    edit_.setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
    QObject::connect(&edit_, &QDateEdit::dateChanged, &edit_, [this](const QDate& date) {
      if (IsPersonsDoing()) picker_.DoPick(FromQt(date));
    });
  }
  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    state.date = FromQt(edit_.date());
  }
  // The mouse, or a number typed to its end, has gone to another part.
  void BeforeKey() override {
    for (const auto& [part, section] : kParts) {
      if (edit_.currentSection() == section) picker_.SetCurrentPart(part);
    }
  }

 private:
  static constexpr std::pair<DTPicker::Part, QDateTimeEdit::Section> kParts[] = {
      {DTPicker::Part::Month, QDateTimeEdit::MonthSection},
      {DTPicker::Part::Day, QDateTimeEdit::DaySection},
      {DTPicker::Part::Year, QDateTimeEdit::YearSection}};

  void Apply(unsigned aspects) override {
    const bool changes = Has(aspects, Aspect::Date) && edit_.date() != ToQt(picker_.Value());
    if (changes) edit_.setDate(ToQt(picker_.Value()));
    if ((!changes && !Has(aspects, Aspect::Selection)) || !edit_.hasFocus()) return;
    for (const auto& [part, section] : kParts) {
      if (picker_.CurrentPart() == part) edit_.setSelectedSection(section);
    }
  }
  DTPicker& picker_;
  QDateEdit& edit_;
};

class ProgressPeer : public WidgetPeer {
 public:
  ProgressPeer(FormWindow& window, ProgressBar& control, QProgressBar& bar)
      : WidgetPeer(window, control, bar), progress_(control), bar_(bar) {}
  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    state.value = bar_.value();
  }

 private:
  void Apply(unsigned aspects) override {
    if (!Has(aspects, Aspect::Value)) return;
    bar_.setRange(0, progress_.Maximum());
    bar_.setValue(progress_.Value());
  }
  ProgressBar& progress_;
  QProgressBar& bar_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeDatePeer(FormWindow& window, Control& control, QWidget& widget) {
  if (auto* month = dynamic_cast<MonthView*>(&control)) {
    return std::make_unique<MonthPeer>(window, *month, dynamic_cast<QCalendarWidget&>(widget));
  }
  if (auto* picker = dynamic_cast<DTPicker*>(&control)) {
    return std::make_unique<PickerPeer>(window, *picker, dynamic_cast<QDateEdit&>(widget));
  }
  return nullptr;
}

std::unique_ptr<WidgetPeer> MakeProgressPeer(FormWindow& window, ProgressBar& control, QWidget& widget) {
  return std::make_unique<ProgressPeer>(window, control, dynamic_cast<QProgressBar&>(widget));
}

}  // namespace lantos::ui
