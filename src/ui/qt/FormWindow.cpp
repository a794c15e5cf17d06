#include "ui/qt/FormWindow.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QWindow>
#include <algorithm>
#include <stdexcept>

#include "ui/qt/Appearance.h"
#include "ui/qt/Binding.h"
#include "ui/qt/FormFile.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

// A form that the person can do nothing with only tells that something is going on.
bool IsNotice(const Form& form) {
  for (const Control* control : form.Controls()) {
    if (control->TakesFocus()) return false;
  }
  return true;
}

Qt::WindowFlags FlagsOf(const Form& form) {
  if (IsNotice(form)) return Qt::SplashScreen;
  if (form.Resizable()) return Qt::Window;
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
         Qt::WindowCloseButtonHint;
}

// In points, where all controls that have a font have one of a size of their own; else 0.
int CommonFontSize(const Form& form) {
  int smallest = 0;
  for (const Control* control : form.Controls()) {
    if (dynamic_cast<const Timer*>(control) != nullptr || dynamic_cast<const ProgressBar*>(control) != nullptr)
      continue;
    if (control->FontSize() == 0) return 0;
    smallest = smallest == 0 ? control->FontSize() : std::min(smallest, control->FontSize());
  }
  return smallest;
}

// The focus has come to the field. Typing goes on where a page ends; the mouse puts the caret elsewhere afterwards.
void EnterField(QWidget& field) {
  if (auto* line = qobject_cast<QLineEdit*>(&field)) line->selectAll();
  if (auto* combo = qobject_cast<QComboBox*>(&field); combo != nullptr && combo->isEditable()) {
    combo->lineEdit()->selectAll();
  }
  if (auto* date = qobject_cast<QDateEdit*>(&field)) date->setSelectedSection(QDateEdit::MonthSection);
  if (auto* page = qobject_cast<QPlainTextEdit*>(&field)) page->moveCursor(QTextCursor::End);
}

// For labels that are no controls.
void SetFontSize(QWidget& root, int points) {
  if (points == 0) return;
  QFont font = root.font();
  font.setPointSize(points);
  root.setFont(font);
}

}  // namespace

FormWindow::FormWindow(QtDesktop& desktop, Form& form)
    : desktop_(desktop), form_(&form), actions_(std::make_unique<MenuActions>()) {
  setWindowFlags(FlagsOf(form));
  setObjectName(QString::fromStdString(form.Name()));
  root_ = LoadFormFile(form.Name()).release();
  setCentralWidget(root_);
  SetFontSize(*root_, CommonFontSize(form));
  Bind();
  form.SetPeer(this);
  CaptionChanged();
  LookChanged();
  root_->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FocusWidgetChanged(now); });
}

FormWindow::~FormWindow() {
  Detach();
  // Widgets that go still speak to their peers.
  delete takeCentralWidget();
}

// That every control has its widget, of its kind and in its place, is what the tests of the bindings see to.
void FormWindow::Bind() {
  QHash<QString, QWidget*> widgets;
  for (QWidget* widget : root_->findChildren<QWidget*>()) widgets.insert(widget->objectName(), widget);
  for (Control* control : form_->Controls()) {
    if (!NeedsWidget(*control)) continue;
    QWidget* found = widgets.value(ObjectNameOf(*control));
    if (found == nullptr) throw std::logic_error(form_->Name() + ": " + control->FullName() + " has no widget");
    QWidget& widget = *found;
    peers_.push_back(MakePeer(*this, *control, widget));
    WidgetPeer* peer = peers_.back().get();
    control->SetPeer(peer);
    byControl_.insert(control, peer);
    byMouseTarget_.insert(&peer->MouseTarget(), peer);
    byWidget_.insert(&widget, control);
    peer->MouseTarget().installEventFilter(this);
    // The mouse belongs to the control that it is on, and not to what that lies on.
    widget.setAttribute(Qt::WA_NoMousePropagation);
    if (widget.focusPolicy() == Qt::WheelFocus) widget.setFocusPolicy(Qt::StrongFocus);
    dirty_.push_back(peer);
  }
  GroupOptions();
  for (QLabel* label : root_->findChildren<QLabel*>()) MakeRoomForMnemonic(*label);
  for (const auto& menu : form_->Menus()) {
    if (!menu->Visible()) continue;
    actions_->FillBar(*menuBar(), form_->Menus());
    break;
  }
}

// Options in one container exclude one another, wherever the layout has put them.
void FormWindow::GroupOptions() {
  QHash<const Frame*, QButtonGroup*> groups;
  for (Control* control : form_->Controls()) {
    auto* option = dynamic_cast<OptionButton*>(control);
    if (option == nullptr) continue;
    QButtonGroup*& group = groups[option->Container()];
    if (group == nullptr) group = new QButtonGroup(root_);
    group->addButton(&dynamic_cast<QRadioButton&>(byControl_.value(control)->Widget()));
  }
}

void FormWindow::Detach() {
  if (form_ == nullptr) return;
  for (Control* control : form_->Controls()) {
    if (NeedsWidget(*control)) control->SetPeer(nullptr);
  }
  for (const auto& peer : peers_) peer->ControlGone();
  form_->SetPeer(nullptr);
  form_ = nullptr;
  actions_->Detach();
  byControl_.clear();
  dirty_.clear();
  hide();
}

void FormWindow::MarkDirty(WidgetPeer& peer) {
  dirty_.push_back(&peer);
  ScheduleFlush();
}

void FormWindow::ScheduleFlush() {
  if (flushScheduled_ || !IsAttached()) return;
  flushScheduled_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        flushScheduled_ = false;
        Flush();
      },
      Qt::QueuedConnection);
}

void FormWindow::Flush() {
  if (flushing_ || !IsAttached()) return;
  flushing_ = true;
  FlushMarked();
  ApplyFocus();
  flushing_ = false;
  if (!form_->Resizable() && isVisible()) FixSize();
}

void FormWindow::FlushMarked() {
  while (!dirty_.empty()) {
    std::vector<WidgetPeer*> marked = std::exchange(dirty_, {});
    // Hiding goes first: two views side by side for a moment would make the window grow.
    std::stable_partition(marked.begin(), marked.end(), [](WidgetPeer* peer) { return !peer->GetControl().Visible(); });
    for (WidgetPeer* peer : marked) peer->Flush();
  }
}

bool FormWindow::IsWorking() const { return IsAttached() && !flushing_ && isVisible() && desktop_.IsWorking(); }

WidgetPeer* FormWindow::PeerOf(const Control& control) const { return byControl_.value(&control, nullptr); }

Control* FormWindow::ControlAt(QWidget* widget) const {
  for (; widget != nullptr && widget != this; widget = widget->parentWidget()) {
    if (Control* control = byWidget_.value(widget, nullptr)) return control;
  }
  return nullptr;
}

bool FormWindow::MoveFocusTo(Control& control) {
  if (!control.TakesFocus() || form_->Focus() == &control) return true;
  movingFocus_ = true;
  const bool moved = form_->MoveFocus(&control);
  movingFocus_ = false;
  if (!IsAttached()) return false;
  Flush();
  return moved;
}

// The window system has moved the focus by itself: arrow keys in a group of options, say.
void FormWindow::FocusWidgetChanged(QWidget* now) {
  if (!IsAttached() || flushing_ || movingFocus_ || now == nullptr || now->window() != this) return;
  Control* control = ControlAt(now);
  if (control == nullptr || control == form_->Focus()) return;
  if (focusDirty_) {
    Flush();
  } else {
    MoveFocusTo(*control);
  }
}

// The widgets follow the form: the widget of its focus has it, and none when that can't be reached.
void FormWindow::ApplyFocus() {
  focusDirty_ = false;
  const bool wasElsewhere = std::exchange(wasElsewhere_, false);
  Control* wanted = form_->Focus();
  QWidget* has = focusWidget();
  Control* shown = ControlAt(has);
  if (wanted == nullptr || !wanted->IsUsable()) {
    if (shown != nullptr) has->clearFocus();
    return;
  }
  if (wanted == shown) {
    if (wasElsewhere) EnterField(*has);
    return;
  }
  WidgetPeer* peer = PeerOf(*wanted);
  if (peer == nullptr) return;
  peer->Widget().setFocus(Qt::OtherFocusReason);
  EnterField(peer->Widget());
}

void FormWindow::EnterFocusedField() {
  WidgetPeer* peer = form_->Focus() == nullptr ? nullptr : PeerOf(*form_->Focus());
  if (peer != nullptr) EnterField(peer->Widget());
}

void FormWindow::CaptionChanged() {
  setWindowTitle(ToQt(form_->Caption()));
  desktop_.PublishCaptions();
}

void FormWindow::FocusChanged() {
  focusDirty_ = true;
  wasElsewhere_ |= form_->Focus() != ControlAt(focusWidget());
  ScheduleFlush();
}

void FormWindow::LookChanged() { PaintBackground(*root_, form_->BackColor(), Colours::Around); }

void FormWindow::paintEvent(QPaintEvent* event) {
  painted_ = true;
  QMainWindow::paintEvent(event);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!IsAttached()) return false;
  if (watched == windowHandle()) return input_.HandleWindowEvent(*event);
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease: {
      auto& mouse = static_cast<QMouseEvent&>(*event);
      if (watched == root_) return HandleRootMouse(mouse);
      WidgetPeer* peer = byMouseTarget_.value(watched, nullptr);
      if (peer == nullptr) return false;
      return !peer->GetControl().IsUsable() || peer->HandleMouse(mouse);
    }
    case QEvent::Resize:
      if (WidgetPeer* peer = byMouseTarget_.value(watched, nullptr)) peer->Resized();
      return false;
    case QEvent::Wheel:
      // A wheel that goes over a field on its way down a page must not change what is in it.
      return qobject_cast<QComboBox*>(watched) != nullptr || qobject_cast<QAbstractSpinBox*>(watched) != nullptr;
    default:
      return false;
  }
}

bool FormWindow::HandleRootMouse(QMouseEvent& event) {
  if (event.type() != QEvent::MouseButtonRelease) return true;
  form_->DoMouseUp(event.button() == Qt::RightButton ? MouseButton::Right : MouseButton::Left);
  return true;
}

void FormWindow::closeEvent(QCloseEvent* event) {
  // The form decides, and hides the window itself.
  event->ignore();
  CloseWith(QGuiApplication::queryKeyboardModifiers());
}

// A window manager keeps Alt+F4 to itself and only asks for the close: a screen that has a use for the key has it
// first.
void FormWindow::CloseWith(Qt::KeyboardModifiers held) {
  if (!IsAttached()) return;
  if (!held.testFlag(Qt::AltModifier)) return form_->DoClose();
  KeyPress key = ParseKey("Alt+F4");
  form_->PreviewKey(key);
  if (IsAttached() && form_->Visible() && !key.cleared) form_->DoClose();
}

void FormWindow::SendKey(QKeyEvent down, QKeyEvent up) {
  QApplication::sendEvent(windowHandle(), &down);
  if (IsAttached() && isVisible() && windowHandle() != nullptr) QApplication::sendEvent(windowHandle(), &up);
}

}  // namespace lantos::ui
