#pragma once

#include <QCalendarWidget>
#include <QTableView>
#include <optional>

namespace lantos::ui {

// The table of days inside a calendar.
QTableView& DaysOf(const QCalendarWidget& calendar);

// Its bar and its week-ends in the colours of the window: colour on the board is for how full a day is.
void CalmDown(QCalendarWidget& calendar);

// The middle of a day on the page that the calendar shows, in the pixels of the table's viewport. None when the day
// isn't of the month on show.
std::optional<QPoint> PlaceOfDay(const QCalendarWidget& calendar, const QDate& day);

}  // namespace lantos::ui
