#include "ui/qt/Keys.h"

#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

struct NamedKey {
  const char* name;
  Qt::Key code;
};
constexpr NamedKey kNamedKeys[] = {
    {"Esc", Qt::Key_Escape},
    {"Enter", Qt::Key_Return},
    {"Enter", Qt::Key_Enter},
    {"Insert", Qt::Key_Insert},
    {"Delete", Qt::Key_Delete},
    {"PgUp", Qt::Key_PageUp},
    {"PgDn", Qt::Key_PageDown},
    {"Up", Qt::Key_Up},
    {"Down", Qt::Key_Down},
    {"Left", Qt::Key_Left},
    {"Right", Qt::Key_Right},
    {"Home", Qt::Key_Home},
    {"End", Qt::Key_End},
    {"Tab", Qt::Key_Tab},
    {"Tab", Qt::Key_Backtab},
    {"Space", Qt::Key_Space},
    {"Backspace", Qt::Key_Backspace},
    {"Menu", Qt::Key_Menu},
};

bool IsCharacter(int code) { return code > Qt::Key_Space && code <= Qt::Key_ydiaeresis; }

std::string NameOf(const QKeyEvent& event) {
  const int code = event.key();
  for (const NamedKey& named : kNamedKeys) {
    if (named.code == code) return named.name;
  }
  if (code >= Qt::Key_F1 && code <= Qt::Key_F35) return "F" + std::to_string(code - Qt::Key_F1 + 1);
  // With Ctrl or Alt the text is none or a control character: the code says which letter it is.
  if (IsCharacter(code)) return ToUpper(FromQt(QString(QChar(code))));
  const QString text = event.text();
  return text.size() == 1 && text[0].isPrint() ? ToUpper(FromQt(text)) : std::string();
}

Qt::Key CodeOf(const std::string& name) {
  for (const NamedKey& named : kNamedKeys) {
    if (named.name == name) return named.code;
  }
  if (name.size() > 1 && name[0] == 'F') return static_cast<Qt::Key>(Qt::Key_F1 + std::stoi(name.substr(1)) - 1);
  return static_cast<Qt::Key>(ToQt(name).at(0).unicode());
}

}  // namespace

KeyPress ReadKey(const QKeyEvent& event) {
  KeyPress press;
  press.key = NameOf(event);
  press.shift = event.modifiers().testFlag(Qt::ShiftModifier);
  press.control = event.modifiers().testFlag(Qt::ControlModifier);
  press.alt = event.modifiers().testFlag(Qt::AltModifier);
  return press;
}

QKeyEvent MakeKeyEvent(QEvent::Type type, const KeyPress& key) {
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ShiftModifier, key.shift);
  modifiers.setFlag(Qt::ControlModifier, key.control);
  modifiers.setFlag(Qt::AltModifier, key.alt);
  QString text;
  if (!key.control && !key.alt) {
    if (key.key.size() == 1) text = ToQt(key.shift ? key.key : ToLower(key.key));
    if (key.key == "Space") text = QStringLiteral(" ");
    if (key.key == "Enter") text = QStringLiteral("\r");
  }
  return QKeyEvent(type, CodeOf(key.key), modifiers, text);
}

QKeyEvent MakeKeyEvent(QEvent::Type type, char character) {
  if (character == '\n') return QKeyEvent(type, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
  const QString text = ToQt(std::string(1, character));
  const bool capital = text[0].isUpper();
  return QKeyEvent(type, text[0].toUpper().unicode(), capital ? Qt::ShiftModifier : Qt::NoModifier, text);
}

}  // namespace lantos::ui
