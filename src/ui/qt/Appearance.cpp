#include "ui/qt/Appearance.h"

#include <QPainter>

namespace lantos::ui {

QColor ToQt(Color color) { return QColor(color.red, color.green, color.blue); }

QColor ReadableOn(Color background) {
  const int brightness = (299 * background.red + 587 * background.green + 114 * background.blue) / 1000;
  return brightness < 128 ? Qt::white : Qt::black;
}

void PaintBackground(QWidget& widget, const std::optional<Color>& color) {
  if (!color) {
    widget.setPalette(QPalette());
    return;
  }
  QPalette palette;
  const QColor text = ReadableOn(*color);
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) palette.setColor(role, ToQt(*color));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) palette.setColor(role, text);
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

QFont FontOf(const Control& control, const QFont& theme) {
  QFont font = theme;
  if (control.Face() == FontFace::FixedPitch) {
    font.setFamilies({QStringLiteral("Liberation Mono"), QStringLiteral("Courier New"), QStringLiteral("monospace")});
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
  }
  if (control.FontSize() > 0) font.setPointSize(control.FontSize());
  if (control.Bold()) font.setBold(true);
  return font;
}

QIcon ProgramIcon() {
  constexpr int kSize = 64;
  QPixmap pixmap(kSize, kSize);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x2f, 0x55, 0x7a));
  painter.drawRoundedRect(4, 8, 56, 52, 7, 7);
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(8, 22, 48, 34, 3, 3);
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 4; ++column) {
      const bool marked = row == 1 && column == 2;
      painter.setBrush(marked ? QColor(0xd0, 0x6a, 0x1c) : QColor(0xb8, 0xc4, 0xd0));
      painter.drawRect(13 + column * 10, 26 + row * 10, 7, 6);
    }
  }
  painter.setBrush(QColor(0x1d, 0x38, 0x54));
  painter.drawRoundedRect(17, 3, 6, 12, 2, 2);
  painter.drawRoundedRect(41, 3, 6, 12, 2, 2);
  return QIcon(pixmap);
}

}  // namespace lantos::ui
