#include "ui/qt/WidgetPeer.h"

#include "ui/Browser.h"
#include "ui/SpokenName.h"
#include "ui/qt/Appearance.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/Text.h"
#include "ui/qt/ToolTip.h"

namespace lantos::ui {

WidgetPeer::WidgetPeer(FormWindow& window, Control& control, QWidget& widget)
    : window_(window), control_(control), widget_(widget), themeFont_(widget.font()) {}

void WidgetPeer::Refresh(Aspect aspect) {
  if (dirty_ == 0) window_.MarkDirty(*this);
  dirty_ |= Bit(aspect);
  // What tells how a long work goes on is painted at once.
  const bool tells = dynamic_cast<Label*>(&control_) != nullptr || dynamic_cast<ProgressBar*>(&control_) != nullptr;
  if (!tells || !window_.IsWorking()) return;
  Flush();
  widget_.repaint();
}

void WidgetPeer::Flush() {
  const unsigned aspects = std::exchange(dirty_, 0U);
  if (aspects == 0) return;
  if (Has(aspects, Aspect::Look)) ApplyLook();
  Apply(aspects);
  if (Has(aspects, Aspect::Enabled)) widget_.setEnabled(control_.Enabled());
  if (Has(aspects, Aspect::Shown)) ShowOrHide();
  // A list is called like the frame around it, whose caption may have changed with its rows.
  if (Has(aspects, Aspect::ToolTip) || Has(aspects, Aspect::Caption) || Has(aspects, Aspect::Rows)) {
    widget_.setAccessibleName(ToQt(SpokenNameOf(control_)));
  }
  if (Has(aspects, Aspect::ToolTip)) ShowToolTip();
}

// What was designed to be seen is shown with its window, and costs a layout when it is told so once more.
void WidgetPeer::ShowOrHide() {
  const bool asDesigned = !widget_.testAttribute(Qt::WA_WState_ExplicitShowHide);
  if (!control_.Visible() || !asDesigned) widget_.setVisible(control_.Visible());
}

QString WidgetPeer::ToolTipToCome() const { return ToQt(control_.ToolTip()); }

void WidgetPeer::ShowToolTip() { widget_.setToolTip(AsToolTip(ToolTipToCome())); }

void WidgetPeer::ApplyLook() {
  const QFont font = FontToCome();
  if (widget_.font() != font) widget_.setFont(font);
  if (!coloured_ && !control_.BackColor()) return;
  const bool holdsOthers = dynamic_cast<Frame*>(&control_) != nullptr;
  PaintBackground(widget_, control_.BackColor(), holdsOthers ? Colours::Around : Colours::Inside);
  coloured_ = control_.BackColor().has_value();
}

QFont WidgetPeer::FontToCome() const { return FontOf(control_, themeFont_); }

void WidgetPeer::Read(ControlState& state) const {
  const QWidget* window = widget_.window();
  state.visible = widget_.isVisibleTo(window);
  state.name = FromQt(widget_.accessibleName());
  if (state.visible) state.enabled = widget_.isEnabledTo(window);
}

bool WidgetPeer::IsPersonsDoing() const { return window_.IsAttached() && !window_.IsFlushing(); }

// Labels and frames have no clicks of their own: they are made of presses and releases here.
bool WidgetPeer::HandleMouse(QMouseEvent& event) {
  const bool left = event.button() == Qt::LeftButton;
  if (control_.TakesFocus()) {
    if (event.type() != QEvent::MouseButtonRelease || left || !control_.OnMouseUp) return false;
    control_.DoMouseUp(MouseButton::Right);
    return true;
  }
  switch (event.type()) {
    case QEvent::MouseButtonPress:
      pressed_ = true;
      doubleClicked_ = false;
      return true;
    case QEvent::MouseButtonDblClick:
      pressed_ = true;
      doubleClicked_ = true;
      if (left) control_.DoDoubleClick();
      return true;
    case QEvent::MouseButtonRelease: {
      const bool clicked = std::exchange(pressed_, false) && !std::exchange(doubleClicked_, false) &&
                           widget_.rect().contains(event.position().toPoint());
      control_.DoMouseUp(left ? MouseButton::Left : MouseButton::Right);
      if (clicked && left && window_.IsAttached()) control_.DoClick();
      return true;
    }
    default:
      return false;
  }
}

std::unique_ptr<WidgetPeer> MakePeer(FormWindow& window, Control& control, QWidget& widget) {
  if (auto* text = dynamic_cast<TextBox*>(&control)) return MakeTextPeer(window, *text, widget);
  if (auto* captioned = dynamic_cast<Captioned*>(&control)) return MakeCaptionPeer(window, *captioned, widget);
  if (auto* list = dynamic_cast<ListBox*>(&control)) return MakeListPeer(window, *list, widget);
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) return MakeComboPeer(window, *combo, widget);
  if (auto* grid = dynamic_cast<Grid*>(&control)) return MakeGridPeer(window, *grid, widget);
  if (auto* bar = dynamic_cast<ProgressBar*>(&control)) return MakeProgressPeer(window, *bar, widget);
  if (auto* browser = dynamic_cast<Browser*>(&control)) return MakeBrowserPeer(window, *browser, widget);
  return MakeDatePeer(window, control, widget);
}

}  // namespace lantos::ui
