#include "ui/qt/CalendarView.h"

#include <QTextCharFormat>
#include <QToolButton>
#include <algorithm>

namespace lantos::ui {

namespace {

constexpr int kRows = 7;        // the names of the days, and the six weeks that a month may lie in
constexpr int kRowPadding = 4;  // pixels above and below the number together

}  // namespace

QTableView& DaysOf(const QCalendarWidget& calendar) { return *calendar.findChild<QTableView*>(); }

void CalmDown(QCalendarWidget& calendar) {
  for (const auto day : {Qt::Saturday, Qt::Sunday}) calendar.setWeekdayTextFormat(day, QTextCharFormat());
  auto* bar = calendar.findChild<QWidget*>(QStringLiteral("qt_calendar_navigationbar"));
  if (bar == nullptr) return;
  // Its buttons paint their texts for a marked background.
  QPalette palette;
  palette.setColor(QPalette::HighlightedText, calendar.palette().color(QPalette::WindowText));
  bar->setPalette(palette);
  // What the calendar asks for by itself is too little for a large font.
  const int row = QFontMetrics(calendar.font()).height() + kRowPadding;
  const int edges = 2 * DaysOf(calendar).frameWidth();
  calendar.setMinimumHeight(std::max(calendar.minimumHeight(), bar->sizeHint().height() + kRows * row + edges));
  bar->setBackgroundRole(QPalette::Window);
  for (auto* button : bar->findChildren<QToolButton*>()) {
    const QString name = button->objectName();
    if (!name.endsWith(QLatin1String("month")) || name == QLatin1String("qt_calendar_monthbutton")) continue;
    button->setIcon(QIcon());
    button->setArrowType(name == QLatin1String("qt_calendar_prevmonth") ? Qt::LeftArrow : Qt::RightArrow);
  }
}

std::optional<QPoint> PlaceOfDay(const QCalendarWidget& calendar, const QDate& day) {
  if (calendar.yearShown() != day.year() || calendar.monthShown() != day.month()) return std::nullopt;
  const QTableView& days = DaysOf(calendar);
  const QAbstractItemModel& model = *days.model();
  // The page begins with the last days of the month before: the month on show begins at the first "1".
  int number = 0;
  for (int row = 0; row < model.rowCount(); ++row) {
    for (int column = 0; column < model.columnCount(); ++column) {
      const QModelIndex index = model.index(row, column);
      bool isNumber = false;
      const int shown = model.data(index).toString().toInt(&isNumber);
      if (!isNumber || days.isColumnHidden(column)) continue;
      if (number > 0 || shown == 1) ++number;
      if (number == day.day()) return days.visualRect(index).center();
    }
  }
  return std::nullopt;
}

}  // namespace lantos::ui
