#include "ui/qt/FormInput.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QWindow>

#include "ui/HelpDesk.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/Keys.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

bool HasMnemonic(const QString& text, QChar letter) {
  return QKeySequence::mnemonic(text) == QKeySequence(Qt::ALT | static_cast<Qt::Key>(letter.toUpper().unicode()));
}

}  // namespace

Form& FormInput::GetForm() const { return window_.GetForm(); }

bool FormInput::HasTheUser() const {
  if (!window_.IsAttached() || !GetForm().Visible() || QApplication::activePopupWidget() != nullptr) return false;
  const QWidget* modal = QApplication::activeModalWidget();
  return modal == nullptr || modal == &window_;
}

bool FormInput::HandleWindowEvent(QEvent& event) {
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
bool FormInput::HandlePress(QMouseEvent& event) {
  swallowRelease_ = false;
  window_.Flush();
  QWidget* at = window_.childAt(event.position().toPoint());
  Control* control = window_.ControlAt(at);
  if (control == nullptr || !control->TakesFocus() || !at->isEnabled()) return false;
  const int waits = window_.Owner().WaitCount();
  if (window_.MoveFocusTo(*control) && window_.Owner().WaitCount() == waits) return false;
  swallowRelease_ = true;
  return true;
}

bool FormInput::HandleKey(QKeyEvent& event) {
  KeyPress press = ReadKey(event);
  if (press.key.empty()) return false;
  ShowKeyboardFocus();
  window_.Flush();
  if (const Control* focus = GetForm().Focus()) {
    if (WidgetPeer* peer = window_.PeerOf(*focus)) peer->BeforeKey();
  }
  GetForm().PreviewKey(press);
  if (!window_.IsAttached() || !GetForm().Visible() || press.cleared) return true;
  window_.Flush();
  return PlatformKey(press) || FilterCharacter(event);
}

bool FormInput::PlatformKey(const KeyPress& key) {
  if (key.IsAlt("F4")) {
    GetForm().DoClose();
    return true;
  }
  if (PressHelpKey(GetForm(), key)) return true;
  if (key.alt && !key.control && key.key.size() == 1) {
    PressMnemonic(ToQt(key.key).at(0));
    return true;  // one that nothing bears goes into no text
  }
  if (key.key == "Tab" && !key.alt && !key.control) {
    if (Control* next = GetForm().NextInTabOrder(key.shift)) window_.MoveFocusTo(*next);
    return true;
  }
  if (key.Is("Esc")) return ClickButton(GetForm().CancelButton());
  if (key.Is("Enter")) return PressEnter();
  if (IsMenuKey(key)) return PressMenuKey();
  return GetForm().PressControlKey(key);
}

// A text has a menu of its own, which the window system opens.
bool FormInput::PressMenuKey() {
  Control* focus = GetForm().Focus();
  const auto* combo = dynamic_cast<ComboBox*>(focus);
  if (dynamic_cast<TextBox*>(focus) != nullptr || (combo != nullptr && combo->Editable())) return false;
  const QWidget* at = window_.focusWidget() == nullptr ? window_.centralWidget() : window_.focusWidget();
  QtDesktop& desktop = window_.Owner();
  desktop.OpenNextMenuAt(at->mapToGlobal(at->rect().center()));
  GetForm().PressMenuKey();
  desktop.OpenNextMenuAt(std::nullopt);
  return true;
}

// Who goes by keyboard is shown where he is. The window system would do so by itself, had it seen the key.
void FormInput::ShowKeyboardFocus() {
  if (window_.testAttribute(Qt::WA_KeyboardFocusChange)) return;
  window_.setAttribute(Qt::WA_KeyboardFocusChange);
  if (QWidget* has = window_.focusWidget()) has->update();
}

// A button that has the focus goes before the default one; a text of several lines takes the line end.
bool FormInput::PressEnter() {
  Control* focus = GetForm().Focus();
  if (auto* button = dynamic_cast<Button*>(focus)) return ClickButton(button);
  if (const auto* text = dynamic_cast<TextBox*>(focus); text != nullptr && text->MultiLine())
    return IsFull(*text, "\n");
  if (auto* month = dynamic_cast<MonthView*>(focus)) {
    month->DoPick(month->Value());
    return true;
  }
  return ClickButton(GetForm().DefaultButton());
}

// Whether a page has no room for what would be typed. A line has its limit in its widget.
bool FormInput::IsFull(const TextBox& box, std::string_view typed) const {
  const auto* page = qobject_cast<QPlainTextEdit*>(&window_.PeerOf(box)->Widget());
  if (page == nullptr || box.MaxLength() == 0) return false;
  // A line end is two characters inside.
  const auto lengthOf = [](const QString& text) {
    return static_cast<std::size_t>(text.size() + text.count(QLatin1Char('\n')) +
                                    text.count(QChar::ParagraphSeparator));
  };
  const std::size_t marked = lengthOf(page->textCursor().selectedText());
  return lengthOf(page->toPlainText()) - marked + typed.size() + (typed == "\n" ? 1 : 0) > box.MaxLength();
}

bool FormInput::ClickButton(Button* button) {
  if (button == nullptr || !button->IsUsable()) return false;
  qobject_cast<QAbstractButton*>(&window_.PeerOf(*button)->Widget())->click();
  return true;
}

bool FormInput::PressMnemonic(QChar letter) {
  bool labelHit = false;
  for (Control* control : GetForm().Controls()) {
    if (!control->IsUsable()) continue;
    if (labelHit && control->TakesFocus()) {
      // What stands before a button is a text that happens to have an ampersand.
      if (dynamic_cast<Button*>(control) == nullptr) return window_.MoveFocusTo(*control);
      labelHit = false;
    }
    const auto* captioned = dynamic_cast<Captioned*>(control);
    if (captioned == nullptr || !HasMnemonic(ToQt(captioned->Caption()), letter)) continue;
    if (!control->TakesFocus()) {
      labelHit = true;  // the mnemonic of a label goes to the control behind it
      continue;
    }
    if (window_.MoveFocusTo(*control) && control->IsUsable()) {
      qobject_cast<QAbstractButton*>(&window_.PeerOf(*control)->Widget())->click();
    }
    return true;
  }
  return PressLabelMnemonic(letter) || OpenMenu(letter);
}

// Labels that only the design knows.
bool FormInput::PressLabelMnemonic(QChar letter) {
  for (const QLabel* label : window_.centralWidget()->findChildren<QLabel*>()) {
    Control* control = window_.ControlAt(label->buddy());
    if (control == nullptr || !control->IsUsable() || !HasMnemonic(label->text(), letter)) continue;
    window_.MoveFocusTo(*control);
    return true;
  }
  return false;
}

bool FormInput::OpenMenu(QChar letter) {
  if (GetForm().Menus().empty() || window_.Owner().IsDriven()) return false;
  for (QAction* action : window_.menuBar()->actions()) {
    if (!action->isVisible() || !action->isEnabled() || !HasMnemonic(action->text(), letter)) continue;
    window_.menuBar()->setActiveAction(action);
    return true;
  }
  return false;
}

// A character about to go into a text box: the program may change or swallow it.
bool FormInput::FilterCharacter(QKeyEvent& event) {
  auto* box = dynamic_cast<TextBox*>(GetForm().Focus());
  const QString text = event.text();
  if (box == nullptr || box->Locked() || text.size() != 1 || !text[0].isPrint()) return false;
  const char typed = FromQt(text).at(0);
  char character = box->UpperCase() ? ToUpper(typed) : typed;
  if (box->OnKeyPress) {
    GetForm().Run([&] { box->OnKeyPress(character); });
  }
  if (!window_.IsAttached() || character == '\0' || IsFull(*box, "x")) return true;
  if (character == typed) return false;
  QKeyEvent changed(event.type(), event.key(), event.modifiers(), ToQt(std::string(1, character)));
  if (QWidget* widget = window_.focusWidget()) QApplication::sendEvent(widget, &changed);
  return true;
}

}  // namespace lantos::ui
