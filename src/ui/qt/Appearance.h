#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QLabel>
#include <QWidget>
#include <optional>

#include "ui/Control.h"

namespace lantos::ui {

QColor ToQt(Color color);
// Black or white, whatever can be read on the colour.
QColor ReadableOn(Color background);

// Inside: the widget's own fields and buttons. Around: only what its contents lie on.
enum class Colours { Inside, Around };
// The colour behind the widget's text, with a text colour to go with it; none gives the theme's own back.
void PaintBackground(QWidget& widget, const std::optional<Color>& color, Colours colours);

// The colour of what is selected, darker where the theme's can't be read.
void MakeSelectionReadable();

// The theme's font with what the control asks for.
QFont FontOf(const Control& control, const QFont& theme);

// A label with an underlined letter is a pixel or two wider than it says of itself.
void MakeRoomForMnemonic(QLabel& label);

// The program's icon, as the desktop shows it too: packaging/icons.
QIcon ProgramIcon();

}  // namespace lantos::ui
