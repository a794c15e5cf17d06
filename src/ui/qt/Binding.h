#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "ui/Form.h"

// Controls and widgets find one another by name. A member of a control array, "List1(3)", is the widget "List1_3".
namespace lantos::ui {

QString ObjectNameOf(const Control& control);
// Timers have no widget.
bool NeedsWidget(const Control& control);
// Widgets whose name begins with "static_" are there for the eye alone: field labels, lines, panes.
bool IsDecoration(const QWidget& widget);

// What is wrong between a form's controls and its designed widgets: a control without a widget or with one of the
// wrong class, a widget with a name that no control has, a container that doesn't contain, a field that the Tab key
// doesn't reach or reaches out of turn. Empty when all is well.
std::vector<std::string> BindingProblems(const Form& form, const QWidget& root);
// The same for the form as it was designed.
std::vector<std::string> BindingProblems(const Form& form);

}  // namespace lantos::ui
