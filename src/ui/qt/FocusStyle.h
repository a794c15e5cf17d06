#pragma once

#include <QProxyStyle>

namespace lantos::ui {

// The platform's style, with a frame around the list, grid or calendar that has the focus: while no row is selected
// nothing else would tell where the keys go.
class FocusStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
};

// For all windows of this process; once.
void UseFocusStyle();

}  // namespace lantos::ui
