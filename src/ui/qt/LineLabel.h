#pragma once

#include <QFont>
#include <QLabel>

namespace lantos::ui {

// A label of plain text that tells in less time than QLabel how much room it wants: QLabel shapes its text three times
// for it. Where it takes the width that is left and breaks no line by itself only the number of its lines counts, and
// nothing is shaped; elsewhere the text is shaped once. The board has so many labels that its start shows it.
class LineLabel : public QLabel {
 public:
  explicit LineLabel(QWidget* parent = nullptr) : QLabel(parent) { setTextFormat(Qt::PlainText); }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 private:
  bool HasOwnLines() const;
  QSize Room() const;
  QSize RoomOfText() const;

  // The text last shaped, its font, and the room it wants.
  mutable QString shaped_;
  mutable QFont shapedFont_;
  mutable QSize room_;
};

}  // namespace lantos::ui
