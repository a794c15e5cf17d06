#pragma once

#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

#include "ui/Form.h"
#include "ui/qt/FormInput.h"
#include "ui/qt/MenuActions.h"
#include "ui/qt/WidgetPeer.h"

namespace lantos::ui {

class QtDesktop;

// The window of one form. Every key and every press of the mouse comes by its FormInput before any widget sees it: the
// program has the first say on keys, and the control that is left may refuse to let the focus go.
class FormWindow : public QMainWindow, public FormPeer {
 public:
  FormWindow(QtDesktop& desktop, Form& form);
  ~FormWindow() override;

  // The form is gone. The widgets stay until it is safe to delete them, and lead nowhere.
  void Detach();
  bool IsAttached() const { return form_ != nullptr; }
  Form& GetForm() const { return *form_; }

  void ShowForm();
  // Brings all that the program has changed to the widgets.
  void Flush();
  bool IsFlushing() const { return flushing_; }
  // Since it was last shown.
  bool IsPainted() const { return painted_; }
  // On show, under the hourglass.
  bool IsWorking() const;
  void MarkDirty(WidgetPeer& peer);

  QtDesktop& Owner() const { return desktop_; }
  WidgetPeer* PeerOf(const Control& control) const;
  // The control that a widget, or what lies around it, shows; null when none does.
  Control* ControlAt(QWidget* widget) const;
  MenuActions& Actions() { return *actions_; }

  // The person goes to a control. False when the focus stayed where it was.
  bool MoveFocusTo(Control& control);
  // A key as from the keyboard, down and up.
  void SendKey(QKeyEvent down, QKeyEvent up);
  // The window's close box, or the window manager, while these keys are held down.
  void CloseWith(Qt::KeyboardModifiers held);

  void CaptionChanged() override;
  void FocusChanged() override;
  void PlaceChanged() override;
  void LookChanged() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Bind();
  void GroupOptions();
  void ScheduleFlush();
  void FlushMarked();
  void ApplyFocus();
  void EnterFocusedField();  // of a window that comes
  void ApplyPlace();
  void LayOut();
  void FixSize();
  void ReportPlace();
  WindowState ShownState() const;
  void FocusWidgetChanged(QWidget* now);
  bool HandleRootMouse(QMouseEvent& event);

  QtDesktop& desktop_;
  Form* form_;
  QWidget* root_ = nullptr;
  std::vector<std::unique_ptr<WidgetPeer>> peers_;
  QHash<const Control*, WidgetPeer*> byControl_;
  QHash<const QObject*, WidgetPeer*> byMouseTarget_;
  QHash<const QWidget*, Control*> byWidget_;
  std::unique_ptr<MenuActions> actions_;
  FormInput input_{*this};
  std::vector<WidgetPeer*> dirty_;
  bool flushing_ = false;
  bool painted_ = false;
  bool flushScheduled_ = false;
  bool focusDirty_ = false;
  bool wasElsewhere_ = false;  // the form's focus, since it was last shown
  bool placing_ = false;
  bool movingFocus_ = false;
  Twips placedLeft_ = 0;
  Twips placedTop_ = 0;
  QSize placedSize_;
  QPoint placedAt_;
};

}  // namespace lantos::ui
