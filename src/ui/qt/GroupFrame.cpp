#include "ui/qt/GroupFrame.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace lantos::ui {

namespace {

// Between the text's colour and that of the window, nearer to the window's: it doesn't glare in a dark palette either.
QColor LineColour(const QPalette& palette) {
  const QColor text = palette.color(QPalette::WindowText);
  const QColor window = palette.color(QPalette::Window);
  constexpr int kText = 1, kWindow = 3;
  const auto mix = [](int a, int b) { return (a * kText + b * kWindow) / (kText + kWindow); };
  return {mix(text.red(), window.red()), mix(text.green(), window.green()), mix(text.blue(), window.blue())};
}

}  // namespace

void GroupFrame::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  QStylePainter painter(this);
  painter.setPen(LineColour(palette()));
  const QRect frame = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxFrame, this);
  painter.drawRect(frame.adjusted(0, 0, -1, -1));
  option.subControls &= ~QStyle::SC_GroupBoxFrame;
  painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

}  // namespace lantos::ui
