#include "ui/qt/Appearance.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPixmap>
#include <algorithm>
#include <cmath>
#include <span>

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

// The icon that is installed for the desktop, in the sizes that title bars and lists of windows have.
constexpr unsigned char kIcon16[] = {
#include "Icon16.inc"
};
constexpr unsigned char kIcon32[] = {
#include "Icon32.inc"
};
constexpr unsigned char kIcon48[] = {
#include "Icon48.inc"
};
constexpr std::span<const unsigned char> kPictures[] = {kIcon16, kIcon32, kIcon48};

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
  QIcon icon;
  for (const std::span<const unsigned char> picture : kPictures) {
    QPixmap pixmap;
    if (pixmap.loadFromData(picture.data(), static_cast<uint>(picture.size()))) icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace lantos::ui
