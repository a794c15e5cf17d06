#pragma once

#include <QKeyEvent>

#include "ui/Key.h"

namespace lantos::ui {

// Empty key: nothing that the program knows by name (a shift key going down, a dead key).
KeyPress ReadKey(const QKeyEvent& event);

// The key's going down or up, as the window system would tell it.
QKeyEvent MakeKeyEvent(QEvent::Type type, const KeyPress& key);
// A character as it comes from the keyboard; a line feed is the Enter key.
QKeyEvent MakeKeyEvent(QEvent::Type type, char character);

}  // namespace lantos::ui
