#pragma once

#include <QAbstractItemView>
#include <QObject>

namespace lantos::ui {

// A frame around a list, grid or calendar while it has the focus: where no row is selected nothing else would tell
// where the keys go. Lives as long as the view.
class FocusFrame : public QObject {
 public:
  explicit FocusFrame(QAbstractItemView& view);

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;

  QAbstractItemView& view_;
};

}  // namespace lantos::ui
