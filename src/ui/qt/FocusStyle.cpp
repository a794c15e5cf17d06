#include "ui/qt/FocusStyle.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace lantos::ui {

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  const bool isList = element == CE_ShapedFrame && qobject_cast<const QAbstractItemView*>(widget) != nullptr;
  if (!isList || !option->state.testFlag(State_HasFocus)) return;
  constexpr int kWidth = 2;  // pixels
  painter->save();
  painter->setPen(QPen(option->palette.color(QPalette::Highlight), kWidth));
  painter->setBrush(Qt::NoBrush);
  painter->drawRect(option->rect.adjusted(kWidth / 2, kWidth / 2, -kWidth / 2, -kWidth / 2));
  painter->restore();
}

void UseFocusStyle() {
  if (qobject_cast<QProxyStyle*>(QApplication::style()) == nullptr) QApplication::setStyle(new FocusStyle);
}

}  // namespace lantos::ui
