#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QWindow>

#include "ui/qt/FormWindow.h"
#include "ui/qt/Keys.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/Text.h"

// What the person's keyboard and mouse do to a form's window before any widget sees it.
namespace lantos::ui {

namespace {

bool HasMnemonic(const QString& text, QChar letter) {
  return QKeySequence::mnemonic(text) == QKeySequence(Qt::ALT | static_cast<Qt::Key>(letter.toUpper().unicode()));
}

}  // namespace

bool FormWindow::HasTheUser() const {
  if (!IsAttached() || !form_->Visible() || QApplication::activePopupWidget() != nullptr) return false;
  const QWidget* modal = QApplication::activeModalWidget();
  return modal == nullptr || modal == this;
}

bool FormWindow::HandleWindowEvent(QEvent& event) {
  if (!HasTheUser()) return false;
  switch (event.type()) {
    case QEvent::ShortcutOverride:
      // No shortcut of the window system goes before the program: every key comes in as a key.
      event.accept();
      return true;
    case QEvent::KeyPress:
      return HandleKey(static_cast<QKeyEvent&>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return HandlePress(static_cast<QMouseEvent&>(event));
    case QEvent::MouseButtonRelease:
      return std::exchange(swallowRelease_, false);
    default:
      return false;
  }
}

// The control that is left has its say first. When it keeps the focus, or asks the person something, the press is
// spent.
bool FormWindow::HandlePress(QMouseEvent& event) {
  swallowRelease_ = false;
  Flush();
  QWidget* at = childAt(event.position().toPoint());
  Control* control = ControlAt(at);
  if (control == nullptr || !control->TakesFocus() || !at->isEnabled()) return false;
  const int waits = desktop_.WaitCount();
  if (MoveFocusTo(*control) && desktop_.WaitCount() == waits) return false;
  swallowRelease_ = true;
  return true;
}

bool FormWindow::HandleKey(QKeyEvent& event) {
  KeyPress press = ReadKey(event);
  if (press.key.empty()) return false;
  Flush();
  form_->PreviewKey(press);
  if (!IsAttached() || !form_->Visible() || press.cleared) return true;
  Flush();
  return PlatformKey(press) || FilterCharacter(event);
}

bool FormWindow::PlatformKey(const KeyPress& key) {
  if (key.IsAlt("F4")) {
    form_->DoClose();
    return true;
  }
  if (key.alt && !key.control && key.key.size() == 1) return PressMnemonic(ToQt(key.key).at(0));
  if (key.key == "Tab" && !key.alt && !key.control) {
    ShowKeyboardFocus();
    if (Control* next = form_->NextInTabOrder(key.shift)) MoveFocusTo(*next);
    return true;
  }
  if (key.Is("Esc")) return ClickButton(form_->CancelButton());
  return key.Is("Enter") && PressEnter();
}

// Who goes by keyboard is shown where he is. The window system would do so by itself, had it seen the key.
void FormWindow::ShowKeyboardFocus() {
  setAttribute(Qt::WA_KeyboardFocusChange);
  if (QWidget* has = focusWidget()) has->update();
}

// A button that has the focus goes before the default one; a text of several lines takes the line end.
bool FormWindow::PressEnter() {
  Control* focus = form_->Focus();
  if (auto* button = dynamic_cast<Button*>(focus)) return ClickButton(button);
  if (const auto* text = dynamic_cast<TextBox*>(focus); text != nullptr && text->MultiLine()) return false;
  // A calendar of the window system takes Enter for a double click.
  return ClickButton(form_->DefaultButton()) || dynamic_cast<MonthView*>(focus) != nullptr;
}

bool FormWindow::ClickButton(Button* button) {
  if (button == nullptr || !button->IsUsable()) return false;
  qobject_cast<QAbstractButton*>(&PeerOf(*button)->Widget())->click();
  return true;
}

bool FormWindow::PressMnemonic(QChar letter) {
  ShowKeyboardFocus();
  bool labelHit = false;
  for (Control* control : form_->Controls()) {
    if (!control->IsUsable()) continue;
    if (labelHit && control->TakesFocus()) {
      MoveFocusTo(*control);
      return true;
    }
    const auto* captioned = dynamic_cast<Captioned*>(control);
    if (captioned == nullptr || !HasMnemonic(ToQt(captioned->Caption()), letter)) continue;
    if (!control->TakesFocus()) {
      labelHit = true;  // the mnemonic of a label goes to the control behind it
      continue;
    }
    if (MoveFocusTo(*control) && control->IsUsable()) {
      qobject_cast<QAbstractButton*>(&PeerOf(*control)->Widget())->click();
    }
    return true;
  }
  return PressLabelMnemonic(letter) || OpenMenu(letter);
}

// Labels that only the design knows.
bool FormWindow::PressLabelMnemonic(QChar letter) {
  for (const QLabel* label : root_->findChildren<QLabel*>()) {
    Control* control = ControlAt(label->buddy());
    if (control == nullptr || !control->IsUsable() || !HasMnemonic(label->text(), letter)) continue;
    MoveFocusTo(*control);
    return true;
  }
  return false;
}

bool FormWindow::OpenMenu(QChar letter) {
  if (form_->Menus().empty() || desktop_.IsDriven()) return false;
  for (QAction* action : menuBar()->actions()) {
    if (!action->isVisible() || !action->isEnabled() || !HasMnemonic(action->text(), letter)) continue;
    menuBar()->setActiveAction(action);
    return true;
  }
  return false;
}

// A character about to go into a text box: the program may change or swallow it.
bool FormWindow::FilterCharacter(QKeyEvent& event) {
  auto* box = dynamic_cast<TextBox*>(form_->Focus());
  const QString text = event.text();
  if (box == nullptr || box->Locked() || text.size() != 1 || !text[0].isPrint()) return false;
  const char typed = FromQt(text).at(0);
  char character = box->UpperCase() ? ToUpper(typed) : typed;
  if (box->OnKeyPress) {
    form_->Run([&] { box->OnKeyPress(character); });
  }
  if (!IsAttached() || character == '\0') return true;
  if (character == typed) return false;
  QKeyEvent changed(event.type(), event.key(), event.modifiers(), ToQt(std::string(1, character)));
  if (QWidget* widget = focusWidget()) QApplication::sendEvent(widget, &changed);
  return true;
}

void FormWindow::SendKey(QKeyEvent down, QKeyEvent up) {
  QApplication::sendEvent(windowHandle(), &down);
  if (IsAttached() && isVisible() && windowHandle() != nullptr) QApplication::sendEvent(windowHandle(), &up);
}

}  // namespace lantos::ui
