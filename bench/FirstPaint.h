#pragma once

#include <QObject>
#include <QString>

namespace lantos::bench {

// Ends the process when a window has been painted for the first time, with one line on standard output: the resident
// kilobytes at that moment.
class FirstPaint : public QObject {
 public:
  // Of a window whose title begins with this.
  explicit FirstPaint(QString title) : title_(std::move(title)) {}
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QString title_;
  bool seen_ = false;
};

}  // namespace lantos::bench
