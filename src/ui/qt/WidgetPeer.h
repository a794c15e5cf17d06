#pragma once

#include <QMouseEvent>
#include <QWidget>
#include <memory>
#include <optional>

#include "ui/Controls.h"
#include "ui/Drive.h"

namespace lantos::ui {

class Browser;
class FormWindow;

// One control's widget. What the program changes is marked and brought to the widget in one go, before the person can
// see or touch it; what the person changes comes in through the control's Do… procedures.
class WidgetPeer : public ControlPeer {
 public:
  WidgetPeer(FormWindow& window, Control& control, QWidget& widget);

  void Refresh(Aspect aspect) final;
  // Brings everything that was marked to the widget.
  void Flush();

  Control& GetControl() const { return control_; }
  QWidget& Widget() const { return widget_; }

  // The font that the widget has, or is about to have.
  QFont FontToCome() const;

  // What the widget itself shows, written over what the control says.
  virtual void Read(ControlState& state) const;

  // Where the mouse acts.
  virtual QWidget& MouseTarget() const { return widget_; }
  // True when the event is served and goes no further.
  virtual bool HandleMouse(QMouseEvent& event);
  // The middle of a row, brought into sight, in the mouse target's own pixels. None when the control has no such row.
  virtual std::optional<QPoint> PlaceOfRow(int /*row*/) { return std::nullopt; }

  // The widget has another size.
  virtual void Resized() {}
  // A key is about to come in: what the person has done inside the widget is brought to the control.
  virtual void BeforeKey() {}

  // The form is unloaded, its controls may be gone; the widget lives until its last event is over.
  virtual void ControlGone() {}

 protected:
  virtual void Apply(unsigned aspects) = 0;
  virtual QString ToolTipToCome() const;
  void ShowToolTip();
  static bool Has(unsigned aspects, Aspect aspect) { return (aspects & Bit(aspect)) != 0; }
  // False while the program's own changes are being brought to the widget, and when the form is gone.
  bool IsPersonsDoing() const;
  FormWindow& Window() const { return window_; }

 private:
  static unsigned Bit(Aspect aspect) { return 1U << static_cast<unsigned>(aspect); }
  void ApplyLook();
  void ShowOrHide();

  FormWindow& window_;
  Control& control_;
  QWidget& widget_;
  QFont themeFont_;
  unsigned dirty_ = ~0U;  // everything, at first
  bool coloured_ = false;
  bool pressed_ = false;
  bool doubleClicked_ = false;
};

// Null for a control that has no widget of its own kind.
std::unique_ptr<WidgetPeer> MakePeer(FormWindow& window, Control& control, QWidget& widget);

std::unique_ptr<WidgetPeer> MakeTextPeer(FormWindow& window, TextBox& control, QWidget& widget);
std::unique_ptr<WidgetPeer> MakeCaptionPeer(FormWindow& window, Captioned& control, QWidget& widget);
std::unique_ptr<WidgetPeer> MakeListPeer(FormWindow& window, ListBox& control, QWidget& widget);
std::unique_ptr<WidgetPeer> MakeComboPeer(FormWindow& window, ComboBox& control, QWidget& widget);
std::unique_ptr<WidgetPeer> MakeGridPeer(FormWindow& window, Grid& control, QWidget& widget);
std::unique_ptr<WidgetPeer> MakeBrowserPeer(FormWindow& window, Browser& control, QWidget& widget);
std::unique_ptr<WidgetPeer> MakeDatePeer(FormWindow& window, Control& control, QWidget& widget);
std::unique_ptr<WidgetPeer> MakeProgressPeer(FormWindow& window, ProgressBar& control, QWidget& widget);

}  // namespace lantos::ui
