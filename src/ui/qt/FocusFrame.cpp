#include "ui/qt/FocusFrame.h"

#include <QEvent>
#include <QPainter>

namespace lantos::ui {

FocusFrame::FocusFrame(QAbstractItemView& view) : QObject(&view), view_(view) { view_.installEventFilter(this); }

bool FocusFrame::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) view_.update();
  if (event->type() != QEvent::Paint || !view_.hasFocus()) return false;
  watched->event(event);     // the view's own edge first
  constexpr int kWidth = 2;  // pixels
  QPainter painter(&view_);
  painter.setPen(QPen(view_.palette().color(QPalette::Highlight), kWidth));
  painter.drawRect(view_.rect().adjusted(kWidth / 2, kWidth / 2, -kWidth / 2, -kWidth / 2));
  return true;
}

}  // namespace lantos::ui
