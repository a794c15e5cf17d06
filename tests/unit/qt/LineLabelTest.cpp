#include "ui/qt/LineLabel.h"

#include <gtest/gtest.h>

#include <QLineEdit>

namespace lantos::ui {
namespace {

void Dress(QLabel& label, const QString& text, int points) {
  QFont font = label.font();
  font.setPointSize(points);
  label.setFont(font);
  label.setTextFormat(Qt::PlainText);
  label.setText(text);
}

TEST(LineLabel, WantsTheRoomThatAPlainLabelWants) {
  for (const int points : {8, 9, 12, 24}) {
    for (const char* text : {"Date", "Scheduled 12.50\nof 16.00: Under", "AV", "a & b"}) {
      QLabel plain;
      LineLabel label;
      Dress(plain, QString::fromUtf8(text), points);
      Dress(label, QString::fromUtf8(text), points);
      EXPECT_EQ(label.sizeHint(), plain.sizeHint()) << text << ", " << points << " points";
      EXPECT_EQ(label.minimumSizeHint(), plain.minimumSizeHint()) << text << ", " << points << " points";
      plain.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
      label.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
      EXPECT_EQ(label.sizeHint().height(), plain.sizeHint().height()) << text << ", " << points << " points";
    }
  }
}

TEST(LineLabel, AMnemonicTakesNoRoom) {
  QLineEdit field;
  QLabel plain;
  LineLabel label;
  for (QLabel* each : {static_cast<QLabel*>(&plain), static_cast<QLabel*>(&label)}) {
    each->setBuddy(&field);
    Dress(*each, QStringLiteral("&Name"), 9);
  }
  EXPECT_EQ(label.sizeHint(), plain.sizeHint());
}

TEST(LineLabel, AnotherTextOrFontIsMeasuredAnew) {
  LineLabel label;
  Dress(label, QStringLiteral("Mon"), 9);
  const QSize narrow = label.sizeHint();
  label.setText(QStringLiteral("Monday"));
  const QSize wide = label.sizeHint();
  EXPECT_GT(wide.width(), narrow.width());
  Dress(label, QStringLiteral("Monday"), 12);
  EXPECT_GT(label.sizeHint().width(), wide.width());
}

}  // namespace
}  // namespace lantos::ui
