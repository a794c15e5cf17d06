#pragma once

#include <QDate>
#include <QString>
#include <string>
#include <string_view>

#include "frame/PathText.h"
#include "frame/Text.h"
#include "frame/Types.h"

// The border between the program's text and dates and those of the window system.
namespace lantos::ui {

inline QString ToQt(std::string_view ansi) { return QString::fromStdString(ToUtf8(ansi)); }
inline std::string FromQt(const QString& text) { return FromUtf8(text.toStdString()); }
// What a widget shows, directories' names with characters beyond the page among it.
inline std::string ShownText(const QString& text) { return TextOfPath(text.toStdString()); }

inline QDate ToQt(DaySerial day) { return QDate(1899, 12, 30).addDays(day); }
inline DaySerial FromQt(const QDate& date) { return static_cast<DaySerial>(QDate(1899, 12, 30).daysTo(date)); }

}  // namespace lantos::ui
