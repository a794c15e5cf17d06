#pragma once

#include <QGroupBox>

namespace lantos::ui {

// A group box with a plain line around it. The style's own frame is a picture that is stretched to each size by several
// threads, which the start of the board would wait for; and its shade would change the colours of what lies behind.
class GroupFrame : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 private:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace lantos::ui
