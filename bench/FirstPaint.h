#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <utility>

namespace lantos::bench {

// Says "painted" on standard output when a window has been painted for the first time, and ends the process as soon as
// what it loads in the background is there too, with a second line: "resident" and the kilobytes then.
class FirstPaint : public QObject {
 public:
  // Of a window whose title begins with this.
  explicit FirstPaint(
      QString title, std::function<bool()> isLoaded = [] { return true; })
      : title_(std::move(title)), isLoaded_(std::move(isLoaded)) {}
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void ReportAndEnd();

  QString title_;
  std::function<bool()> isLoaded_;
  bool seen_ = false;
};

}  // namespace lantos::bench
