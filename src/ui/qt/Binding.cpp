#include "ui/qt/Binding.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTextBrowser>
#include <map>
#include <set>
#include <type_traits>

#include "ui/qt/FormFile.h"

namespace lantos::ui {

namespace {

template <class Widget>
bool IsA(const QWidget& widget) {
  if constexpr (std::is_same_v<Widget, QWidget>) {
    return true;
  } else {
    return dynamic_cast<const Widget*>(&widget) != nullptr;
  }
}

struct Pairing {
  std::string_view type;
  bool (*fits)(const QWidget&);
};
constexpr Pairing kPairings[] = {
    {"Label", IsA<QLabel>},
    {"Frame", IsA<QWidget>},
    {"Button", IsA<QPushButton>},
    {"CheckBox", IsA<QCheckBox>},
    {"OptionButton", IsA<QRadioButton>},
    {"ListBox", IsA<QListWidget>},
    {"ComboBox", IsA<QComboBox>},
    {"Grid", IsA<QTableView>},
    {"ListView", IsA<QTableView>},
    {"MonthView", IsA<QCalendarWidget>},
    {"DTPicker", IsA<QDateEdit>},
    {"ProgressBar", IsA<QProgressBar>},
    {"Browser", IsA<QTextBrowser>},
};

bool Fits(const Control& control, const QWidget& widget) {
  if (const auto* text = dynamic_cast<const TextBox*>(&control)) {
    return text->MultiLine() ? IsA<QPlainTextEdit>(widget) : IsA<QLineEdit>(widget);
  }
  for (const Pairing& pairing : kPairings) {
    if (pairing.type == control.Type()) return pairing.fits(widget);
  }
  return false;
}

bool IsPlainPane(const QWidget& widget) {
  const std::string kind = widget.metaObject()->className();
  return kind == "QWidget" || kind == "QFrame" || kind == "QGroupBox" || kind == "QLabel" || kind == "Line";
}

// A part that a widget makes for itself: the field of an editable combo box, the days of a calendar.
bool IsPartOfWidget(const QWidget& widget, const QWidget& root, const std::set<const QWidget*>& bound) {
  if (widget.objectName().isEmpty() || widget.objectName().startsWith(QStringLiteral("qt_"))) return true;
  for (const QWidget* outer = widget.parentWidget(); outer != nullptr && outer != &root;
       outer = outer->parentWidget()) {
    if (bound.contains(outer) && !IsPlainPane(*outer)) return true;
  }
  return false;
}

using WidgetsByControl = std::map<const Control*, const QWidget*>;
using FramesByWidget = std::map<const QWidget*, const Frame*>;

void CheckContainer(const Control& control, const QWidget& widget, const FramesByWidget& frames,
                    std::vector<std::string>& problems) {
  const Frame* innermost = nullptr;
  for (const QWidget* outer = widget.parentWidget(); outer != nullptr && innermost == nullptr;
       outer = outer->parentWidget()) {
    const auto found = frames.find(outer);
    if (found != frames.end()) innermost = found->second;
  }
  if (innermost == control.Container()) return;
  problems.push_back(control.FullName() + " lies in " + (innermost == nullptr ? "no frame" : innermost->FullName()) +
                     ", its container is " +
                     (control.Container() == nullptr ? "none" : control.Container()->FullName()));
}

void CheckTabOrder(const Form& form, const WidgetsByControl& bound, const QWidget& root,
                   std::vector<std::string>& problems) {
  std::vector<const Control*> fields;
  for (const Control* control : form.Controls()) {
    if (control->TakesFocus() && control->TabStop() && bound.contains(control)) fields.push_back(control);
  }
  std::set<const QWidget*> met;
  const QWidget* widget = &root;
  std::size_t next = 0;
  do {
    if (next < fields.size() && widget == bound.at(fields[next])) ++next;
    widget = widget->nextInFocusChain();
  } while (widget != &root && met.insert(widget).second);
  if (next < fields.size()) problems.push_back(fields[next]->FullName() + " is out of turn in the tab order");
}

}  // namespace

QString ObjectNameOf(const Control& control) {
  const QString name = QString::fromStdString(control.Name());
  return control.Index() < 0 ? name : name + QLatin1Char('_') + QString::number(control.Index());
}

bool NeedsWidget(const Control& control) { return control.Type() != "Timer"; }

bool IsDecoration(const QWidget& widget) {
  return widget.objectName().startsWith(QStringLiteral("static_")) && IsPlainPane(widget);
}

std::vector<std::string> BindingProblems(const Form& form, const QWidget& root) {
  std::vector<std::string> problems;
  WidgetsByControl bound;
  FramesByWidget frames;
  std::set<const QWidget*> widgets;
  for (const Control* control : form.Controls()) {
    if (!NeedsWidget(*control)) continue;
    const QWidget* widget = root.findChild<QWidget*>(ObjectNameOf(*control));
    if (widget == nullptr) {
      problems.push_back(control->FullName() + " has no widget");
    } else if (!Fits(*control, *widget)) {
      problems.push_back(control->FullName() + " can't be shown by a " + widget->metaObject()->className());
    } else {
      bound[control] = widget;
      widgets.insert(widget);
      if (const auto* frame = dynamic_cast<const Frame*>(control)) frames[widget] = frame;
    }
  }
  for (const auto& [control, widget] : bound) CheckContainer(*control, *widget, frames, problems);
  for (const QWidget* widget : root.findChildren<QWidget*>()) {
    if (widgets.contains(widget) || IsDecoration(*widget) || IsPartOfWidget(*widget, root, widgets)) continue;
    problems.push_back("The widget " + widget->objectName().toStdString() + " has no control");
  }
  CheckTabOrder(form, bound, root, problems);
  return problems;
}

std::vector<std::string> BindingProblems(const Form& form) { return BindingProblems(form, *LoadFormFile(form.Name())); }

}  // namespace lantos::ui
