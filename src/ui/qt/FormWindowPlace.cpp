#include <QApplication>
#include <QLayout>
#include <QMoveEvent>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>

#include "ui/qt/FormWindow.h"
#include "ui/qt/QtDesktop.h"

// Where a form's window stands and how large it is.
namespace lantos::ui {

namespace {

int ToPixels(Twips twips) { return static_cast<int>(twips / kTwipsPerPixel); }
// Of a window, less what the window manager is about to put around it.
QRect RoomAt(QPoint place, const QWidget& window) {
  const QScreen* screen = QGuiApplication::screenAt(place);
  const QRect whole = (screen == nullptr ? window.screen() : screen)->availableGeometry();
  const int edge = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  return whole.adjusted(0, 0, -2 * edge, -edge - window.style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

// As near to the wanted place as the whole window can be seen at; its upper left corner can be in any case.
QPoint InSight(QPoint wanted, const QWidget& window) {
  const QRect room = RoomAt(wanted, window);
  const int left = std::max(room.left(), std::min(wanted.x(), room.left() + room.width() - window.width()));
  const int top = std::max(room.top(), std::min(wanted.y(), room.top() + room.height() - window.height()));
  return {left, top};
}

Twips ToTwips(int pixels) { return static_cast<Twips>(pixels) * kTwipsPerPixel; }

}  // namespace

void FormWindow::ShowForm() {
  painted_ = false;
  const bool again = placedSize_.isValid();
  Flush();
  EnterFocusedField();
  QWidget* below = desktop_.TopFormWindow();
  setWindowModality(below == nullptr || below == this ? Qt::NonModal : Qt::ApplicationModal);
  if (Button* button = form_->DefaultButton()) {
    if (auto* shown = qobject_cast<QPushButton*>(&PeerOf(*button)->Widget())) shown->setDefault(true);
  }
  create();
  windowHandle()->removeEventFilter(this);
  windowHandle()->installEventFilter(this);
  if (below != nullptr && below != this) windowHandle()->setTransientParent(below->windowHandle());
  placing_ = true;
  ApplyPlace();
  QPoint place(ToPixels(form_->LeftEdge()), ToPixels(form_->TopEdge()));
  if (!form_->HasPosition()) {
    const QRect around = below != nullptr && below != this ? below->geometry() : screen()->availableGeometry();
    place = around.center() - QPoint(width() / 2, height() / 2);
  }
  if (again && (!form_->HasPosition() || place == placedAt_)) {
    // Where it was. Its frame is known, and would go where the window without one was put.
    windowHandle()->setPosition(windowHandle()->position());
  } else {
    // Of the frame, which isn't there yet: else the window would creep upwards from one run to the next.
    windowHandle()->setFramePosition(InSight(place, *this));
  }
  show();
  // Who has come by keyboard is shown where he is; the window system has just forgotten it.
  if (below != nullptr && below->testAttribute(Qt::WA_KeyboardFocusChange)) setAttribute(Qt::WA_KeyboardFocusChange);
  placedAt_ = pos();
  placedSize_ = size();
  placing_ = false;
  raise();
  activateWindow();
}

// A window that isn't there yet takes its place when it is shown: each time means laying out all that is on it.
void FormWindow::PlaceChanged() {
  if (!isVisible()) return;
  placing_ = true;
  ApplyPlace();
  placing_ = false;
}

void FormWindow::ApplyPlace() {
  LayOut();
  const bool outgrown = windowState().testFlag(Qt::WindowMaximized);
  if (!form_->Resizable()) {
    FixSize();
  } else if (!outgrown) {
    // Not smaller than what is on it, not larger than the screen.
    QSize wanted(ToPixels(form_->Width()), ToPixels(form_->Height()));
    wanted = wanted.boundedTo(RoomAt(pos(), *this).size()).expandedTo(minimumSizeHint());
    if (wanted != size()) resize(wanted);
  }
  if (form_->LeftEdge() != placedLeft_ || form_->TopEdge() != placedTop_) {
    placedLeft_ = form_->LeftEdge();
    placedTop_ = form_->TopEdge();
    if (isVisible()) move(InSight({ToPixels(placedLeft_), ToPixels(placedTop_)}, *this));
  }
  Qt::WindowStates state = windowState() & ~(Qt::WindowMaximized | Qt::WindowMinimized);
  if (form_->State() == WindowState::Maximized) state |= Qt::WindowMaximized;
  if (form_->State() == WindowState::Minimized) state |= Qt::WindowMinimized;
  if (state != windowState()) setWindowState(state);
  placedSize_ = size();
  placedAt_ = pos();
}

// What has been hidden or shown counts for the sizes at once, which the layouts of a hidden window leave for later.
void FormWindow::LayOut() {
  if (isVisible() || root_->layout() == nullptr) return;
  for (QLayout* layout : {root_->layout(), QMainWindow::layout()}) {
    layout->invalidate();
    layout->activate();
  }
}

// As large as what is on it; texts in several lines need more height than the plain hint says.
void FormWindow::FixSize() {
  LayOut();
  const QLayout* layout = root_->layout();
  if (layout == nullptr) return;
  QSize wanted = root_->sizeHint();
  const QSize around = sizeHint() - wanted;
  if (layout->hasHeightForWidth()) {
    wanted.setHeight(std::max(layout->totalHeightForWidth(wanted.width()), layout->totalMinimumSize().height()));
  }
  wanted += around;
  if (wanted != size() || minimumSize() != maximumSize()) setFixedSize(wanted);
  placedSize_ = size();
}

WindowState FormWindow::ShownState() const {
  if (isMinimized()) return WindowState::Minimized;
  return isMaximized() ? WindowState::Maximized : WindowState::Normal;
}

// What the person, or the window manager for the person, has done to the window.
void FormWindow::ReportPlace() {
  if (!IsAttached() || placing_ || !isVisible() || IsFlushing()) return;
  const WindowState state = ShownState();
  if (size() == placedSize_ && state == form_->State()) return;
  placedSize_ = size();
  if (state == WindowState::Minimized) {
    form_->DoResize(form_->Width(), form_->Height(), state);
  } else {
    form_->DoResize(ToTwips(width()), ToTwips(height()), state);
  }
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  ReportPlace();
}

void FormWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) ReportPlace();
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  if (!IsAttached() || placing_ || !isVisible() || ShownState() != WindowState::Normal || pos() == placedAt_) return;
  placedAt_ = pos();
  form_->DoMove(ToTwips(pos().x()), ToTwips(pos().y()));
}

}  // namespace lantos::ui
