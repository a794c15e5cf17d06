#include "ui/qt/Appearance.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace lantos::ui {

QColor ToQt(Color color) { return QColor(color.red, color.green, color.blue); }

// By the brightness that the eye sees: on red and on middle grey black reads better than white.
QColor ReadableOn(Color background) {
  const auto linear = [](std::uint8_t channel) { return std::pow(channel / 255.0, 2.2); };
  const double brightness =
      0.2126 * linear(background.red) + 0.7152 * linear(background.green) + 0.0722 * linear(background.blue);
  constexpr double kEquallyReadable = 0.179;
  return brightness < kEquallyReadable ? Qt::white : Qt::black;
}

namespace {

double BrightnessOf(const QColor& color) {
  const auto linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

bool CanBeRead(const QColor& text, const QColor& ground) {
  constexpr double kReadable = 4.5;
  constexpr double kStrayLight = 0.05;
  const auto [dark, light] = std::minmax({BrightnessOf(text), BrightnessOf(ground)});
  return (light + kStrayLight) / (dark + kStrayLight) >= kReadable;
}

// Lists on a coloured frame keep the theme's colours: their scroll bars and edges would take the frame's.
void KeepTheme(QWidget& widget, bool keep) {
  QPalette palette;
  if (keep) {
    for (const auto role : {QPalette::Window, QPalette::WindowText}) {
      palette.setColor(role, QApplication::palette().color(role));
    }
  }
  widget.setPalette(palette);
}

}  // namespace

void PaintBackground(QWidget& widget, const std::optional<Color>& color, Colours colours) {
  if (colours == Colours::Around) {
    for (QAbstractScrollArea* list : widget.findChildren<QAbstractScrollArea*>()) KeepTheme(*list, color.has_value());
  }
  if (!color) {
    widget.setPalette(QPalette());
    return;
  }
  QPalette palette;
  palette.setColor(QPalette::Window, ToQt(*color));
  palette.setColor(QPalette::WindowText, ReadableOn(*color));
  if (colours == Colours::Inside) {
    for (const auto role : {QPalette::Base, QPalette::Button}) palette.setColor(role, ToQt(*color));
    for (const auto role : {QPalette::Text, QPalette::ButtonText}) palette.setColor(role, ReadableOn(*color));
  }
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

void MakeSelectionReadable() {
  constexpr int kStep = 105;  // percent
  QPalette palette = QApplication::palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    const QColor text = palette.color(group, QPalette::HighlightedText);
    QColor ground = palette.color(group, QPalette::Highlight);
    if (BrightnessOf(text) < BrightnessOf(ground)) continue;  // dark text: nothing is gained by darkening
    while (!CanBeRead(text, ground) && ground.value() > 0) ground = ground.darker(kStep);
    palette.setColor(group, QPalette::Highlight, ground);
  }
  if (palette != QApplication::palette()) QApplication::setPalette(palette);
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

void MakeRoomForMnemonic(QLabel& label) {
  const bool takesWhatIsLeft = label.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
  if (label.buddy() == nullptr || label.wordWrap() || takesWhatIsLeft) return;
  constexpr int kRoom = 2;  // pixels
  label.setMinimumWidth(label.sizeHint().width() + kRoom);
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
