#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QMap>
#include <QPalette>
#include <QWidget>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

// What can be read is computed from the pixels that are painted. With LANTOS_PICTURES set to a directory the windows
// are left there as pictures, for somebody to look at.
namespace lantos::test {

inline constexpr double kReadable = 4.5;

// Hours that give a day each of its colours; both in hundredths.
struct DayColour {
  const char* word;
  std::int32_t available;
  std::int64_t scheduled;
};
inline constexpr DayColour kDays[] = {
    {"Closed", 0, 0}, {"CLOSED!", 0, 800}, {"Good", 800, 800}, {"Under", 800, 100}, {"Over", 800, 1600}};

inline QPalette DarkPalette() {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(0x2b, 0x2b, 0x2b));
  dark.setColor(QPalette::WindowText, QColor(0xee, 0xee, 0xee));
  dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
  dark.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x26));
  dark.setColor(QPalette::Text, QColor(0xee, 0xee, 0xee));
  dark.setColor(QPalette::Button, QColor(0x38, 0x38, 0x38));
  dark.setColor(QPalette::ButtonText, QColor(0xee, 0xee, 0xee));
  dark.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xb0));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::ToolTipBase, QColor(0x38, 0x38, 0x38));
  dark.setColor(QPalette::ToolTipText, QColor(0xee, 0xee, 0xee));
  return dark;
}

struct Theme {
  const char* name;
  bool dark;
  int points;
};
inline constexpr Theme kThemes[] = {
    {"light", false, 9}, {"light12", false, 12}, {"dark", true, 9}, {"dark12", true, 12}};

// The palette and the font of all windows, for as long as it lives.
class Themed {
 public:
  explicit Themed(const Theme& theme) {
    if (theme.dark) QApplication::setPalette(DarkPalette());
    QFont font = font_;
    font.setPointSize(theme.points);
    QApplication::setFont(font);
  }
  ~Themed() {
    QApplication::setPalette(palette_);
    QApplication::setFont(font_);
  }
  Themed(const Themed&) = delete;

 private:
  QPalette palette_ = QApplication::palette();
  QFont font_ = QApplication::font();
};

inline double Luminance(QRgb colour) {
  const auto linear = [](int channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

inline double Contrast(QRgb one, QRgb other) {
  const double a = Luminance(one);
  const double b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// What most of the pixels are.
inline QRgb GroundOf(const QImage& picture) {
  QMap<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  }
  QRgb ground = 0;
  int most = 0;
  for (auto colour = counts.begin(); colour != counts.end(); ++colour) {
    if (colour.value() <= most) continue;
    most = colour.value();
    ground = colour.key();
  }
  return ground;
}

// Between what most of the pixels are and the one that stands out most.
inline double ContrastIn(const QImage& picture) {
  const QRgb ground = GroundOf(picture);
  double best = 1;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) best = std::max(best, Contrast(ground, picture.pixel(x, y)));
  }
  return best;
}

inline QImage PictureOf(QWidget& widget, const QRect& part) {
  return widget.window()->grab(QRect(widget.mapTo(widget.window(), part.topLeft()), part.size())).toImage();
}

inline void ExpectReadable(QWidget& widget, const QRect& part, const std::string& what) {
  EXPECT_GE(ContrastIn(PictureOf(widget, part)), kReadable) << what;
}

// The whole window, where pictures are asked for.
inline void KeepPicture(QWidget& window, const std::string& name) {
  const char* folder = std::getenv("LANTOS_PICTURES");
  if (folder == nullptr) return;
  const QString file = QString::fromStdString(std::string(folder) + "/" + name + ".png");
  EXPECT_TRUE(window.grab().save(file)) << file.toStdString();
}

}  // namespace lantos::test
