#pragma once

#include <QString>
#include <QTextDocument>

namespace lantos::ui {

// A tool tip that shows the text as it stands. "Save <F10>" would pass for rich text, and so would a text of the shop's
// that has tags or entities.
inline QString AsToolTip(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  return "<p style='white-space:pre'>" + text.toHtmlEscaped() + "</p>";
}

}  // namespace lantos::ui
