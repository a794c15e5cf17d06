#include "ui/qt/LineLabel.h"

#include <QFontMetrics>

namespace lantos::ui {

QSize LineLabel::sizeHint() const { return HasOwnLines() ? Room() : QLabel::sizeHint(); }

QSize LineLabel::minimumSizeHint() const { return HasOwnLines() ? Room() : QLabel::minimumSizeHint(); }

bool LineLabel::HasOwnLines() const { return !wordWrap() && !text().isEmpty(); }

QSize LineLabel::Room() const {
  ensurePolished();
  const int frame = 2 * (margin() + frameWidth());
  return RoomOfText() + QSize(frame, frame);
}

QSize LineLabel::RoomOfText() const {
  const QFontMetrics metrics = fontMetrics();
  if (sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) {
    const auto furtherLines = static_cast<int>(text().count(QLatin1Char('\n')));
    return {0, metrics.height() + furtherLines * metrics.lineSpacing()};
  }
  if (shaped_ != text() || shapedFont_ != font()) {
    shaped_ = text();
    shapedFont_ = font();
    room_ = metrics.size(buddy() == nullptr ? 0 : Qt::TextShowMnemonic, shaped_);
  }
  return room_;
}

}  // namespace lantos::ui
