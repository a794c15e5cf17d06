#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QWheelEvent>
#include <iostream>
#include <map>
#include <sstream>

#include "conformance/KindForm.h"
#include "qt/ScriptedPerson.h"
#include "support/StandInDesktop.h"
#include "ui/driver/ModelHand.h"
#include "ui/qt/FormFile.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/QtHand.h"

// The same hands on plain controls and on real widgets: what can be seen of the form after each deed is the same.
namespace lantos::test {
namespace {

// Deeds stand behind one another with a blank between: keys by name, and what the mouse does. "row:0" clicks a row,
// "double:1" and "right:1" too; "click", "double" and "right" are on the control, "wheel" turns over it.
constexpr const char* kScripts[] = {
    // Rows, dates, options.
    "Down",
    "Up",
    "Home",
    "End",
    "PgUp",
    "PgDn",
    "Space",
    "Down Down Up",
    "End Up",
    "Home PgDn",
    "End PgUp",
    "Down Space",
    "Down Space Space",
    "Up Space Down Space",
    "Left",
    "Right",
    "Right Right Left",
    "Shift+Down",
    "Down Shift+Down Shift+Down",
    "End Shift+Up",
    "Down Shift+End",
    "End Shift+Home Up",
    "Ctrl+A",
    "Ctrl+A Down",
    // Letters look for rows, or are typed.
    "b",
    "b b",
    "b r",
    "b r i",
    "z",
    "q",
    "e e",
    "x y",
    "1",
    "Shift+B",
    // Drop-downs.
    "F4",
    "F4 Down Enter",
    "F4 Down Down Up Enter",
    "F4 End Enter",
    "F4 Down Esc",
    "F4 F10 Down Enter",
    "F4 Down Esc Esc",
    "F4 Down Tab Enter",
    "F4 Alt+Up F10",
    "F4 Down Alt+A Menu Enter",
    "Alt+Down Down Enter",
    "Down F4 F4 Down",
    "F4 b Enter",
    // Texts: caret, mark, clipboard, way back.
    "Backspace",
    "Delete",
    "Home x",
    "End x",
    "Left x",
    "Left Left x",
    "Home Right x",
    "Home Delete Delete",
    "End Backspace Backspace",
    "Home Right Backspace x",
    "Shift+Home x",
    "Home Shift+Right Shift+Right Delete",
    "End Shift+Left Backspace",
    "End Ctrl+Left x",
    "Home Ctrl+Right x",
    "End Ctrl+Backspace",
    "Home Ctrl+Delete",
    "Home Ctrl+Shift+Right Delete",
    "Ctrl+A x",
    "Ctrl+A Delete",
    "Ctrl+A Ctrl+C End Ctrl+V",
    "Ctrl+A Ctrl+X Ctrl+V Ctrl+V",
    "Home Shift+End Ctrl+Insert End Shift+Insert",
    "Ctrl+A Shift+Delete Shift+Insert",
    "End x y Ctrl+Z",
    "End x y Left z Ctrl+Z Ctrl+Z",
    "End x Backspace Ctrl+Z",
    "Ctrl+A x Ctrl+Z",
    "End x y Ctrl+Z Ctrl+Y",
    "Home x Delete Ctrl+Z Ctrl+Z",
    "Enter",
    "End Enter x",
    "Home Down x",
    "End Up x",
    "Home Down Down Down x",
    "End Home x",
    "Ctrl+Home x",
    "Ctrl+End x",
    // Between controls.
    "Tab",
    "Tab Shift+Tab",
    "Shift+Tab",
    "Esc",
    "F10",
    "Insert",
    "Alt+S",
    "Alt+A",
    "F2",
    "Menu",
    "Shift+F10",
    // The mouse.
    "click",
    "double",
    "right",
    "wheel",
    "row:0",
    "row:0 row:0",
    "row:last",
    "double:0",
    "right:0",
    "row:0 Down",
    "row:last Up b",
    "row:0 wheel",
    "right:last Up",
};

std::vector<std::string> WordsOf(const std::string& script) {
  std::istringstream words(script);
  return {std::istream_iterator<std::string>(words), {}};
}

int RowCount(const ui::Control& control) {
  if (const auto* rows = dynamic_cast<const ui::RowControl*>(&control)) return rows->ListCount();
  const auto* grid = dynamic_cast<const ui::Grid*>(&control);
  return grid == nullptr ? 0 : grid->RowCount();
}

// The row that a deed of the mouse names; -1: it names none, or there is no such row.
int RowOf(const std::string& deed, const ui::Control& control) {
  const std::size_t colon = deed.find(':');
  if (colon == std::string::npos) return -1;
  const int row = deed.substr(colon + 1) == "last" ? RowCount(control) - 1 : std::stoi(deed.substr(colon + 1));
  return row < RowCount(control) ? row : -1;
}

class Player {
 public:
  Player(KindForm& form, ui::Hand& hand) : form_(form), hand_(hand) {}
  std::function<void()> wheel = [] {};

  // False when it can't be done to this control.
  bool Do(const std::string& deed) {
    ui::Control& subject = form_.Subject();
    const std::string word = deed.substr(0, deed.find(':'));
    const bool isMouse = word == "click" || word == "double" || word == "right" || word == "row" || word == "wheel";
    if (!isMouse) {
      hand_.PressKey(form_, ui::ParseKey(deed));
      return true;
    }
    if (word == "wheel") {
      wheel();
      return true;
    }
    if (!subject.IsUsable()) return false;
    if (deed.find(':') != std::string::npos) return OnRow(word, RowOf(deed, subject));
    // A day of a calendar, and the parts of a date field, are clicked by picking them.
    if (subject.Type() == "MonthView" || subject.Type() == "DTPicker") return false;
    if (word == "double") {
      hand_.DoubleClick(subject);
    } else {
      hand_.Click(subject, word == "right" ? ui::MouseButton::Right : ui::MouseButton::Left);
    }
    return true;
  }

  // All that a person sees, and what the form was told.
  std::string Seen() const {
    std::ostringstream seen;
    seen << "focus=" << (form_.Focus() == nullptr ? "none" : form_.Focus()->Name());
    for (const ui::Control* control : form_.Controls()) Tell(seen, control->Name(), hand_.Read(*control));
    seen << " told:";
    for (const std::string& event : form_.happened) seen << " [" << event << "]";
    return seen.str();
  }

 private:
  bool OnRow(const std::string& word, int row) {
    if (row < 0) return false;
    ui::Control& subject = form_.Subject();
    if (word == "double") {
      hand_.DoubleClickRow(subject, row);
    } else {
      hand_.ClickRow(subject, row, word == "right" ? ui::MouseButton::Right : ui::MouseButton::Left);
    }
    return true;
  }

  static void Tell(std::ostream& seen, const std::string& name, const ui::ControlState& state) {
    seen << "; " << name << (state.visible ? "" : " hidden") << (state.enabled ? "" : " disabled");
    if (state.text) seen << " text='" << *state.text << "'";
    if (state.caret) seen << " caret=" << *state.caret;
    if (state.checked) seen << " checked=" << *state.checked;
    if (state.locked) seen << " locked=" << *state.locked;
    if (state.selected) seen << " selected=" << *state.selected;
    if (state.date) seen << " date=" << FormatIsoDate(*state.date);
    if (!state.rows) return;
    seen << " rows=";
    for (const ui::ListRow& row : *state.rows) seen << (row.selected ? "S" : ".") << (row.checked ? "x" : "");
  }

  KindForm& form_;
  ui::Hand& hand_;
};

// Nobody is asked anything here.
class LoneDesktop : public StandInDesktop {
  ui::Answer AnswerTo(const ui::Box& box) override { return ui::ButtonsOf(box).front(); }
  void Use(ui::Form&) override {}
  void ChooseFrom(ui::MenuItem&) override {}
  void Failed(const std::string& text) override { ADD_FAILURE() << text; }
};

class PlainBench {
 public:
  PlainBench(const std::string& kind, Condition condition) : form(desktop_, kind, condition) { form.Show(); }

 private:
  LoneDesktop desktop_;
  ui::ModelHand hand_;

 public:
  KindForm form;
  Player player{form, hand_};
};

class WindowBench {
 public:
  WindowBench(const std::string& kind, Condition condition) : form(windows_, kind, condition) {
    QApplication::clipboard()->clear();
    ui::AddFormFile("frmKind", [this] { return DesignFor(form); });
    form.Show();
    // A real window system makes the shown window the active one.
    windows_.WindowOf(form)->activateWindow();
    windows_.Settle();
    player.wheel = [this] { TurnWheel(); };
  }
  ~WindowBench() {
    if (QWidget* open = QApplication::activePopupWidget()) open->close();
  }

  void Settle() { windows_.Settle(); }

 private:
  void TurnWheel() {
    QWidget& widget = windows_.WindowOf(form)->PeerOf(form.Subject())->Widget();
    const QPoint at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
  }

  ScriptedPerson person_;
  ui::QtDesktop windows_{&person_};
  ui::QtHand hand_{windows_};

 public:
  KindForm form;
  Player player{form, hand_};
};

// Whether a control of this kind can be so.
bool CanBe(const std::string& kind, Condition condition) {
  const bool isText = kind == "line" || kind == "capitals" || kind == "secret" || kind == "page";
  const bool hasRows = kind == "drop-down" || kind == "editable" || kind == "list" || kind == "multi" ||
                       kind == "boxes" || kind == "Grid" || kind == "ListView";
  if (condition == Condition::Locked) return isText;
  if (condition == Condition::Empty || condition == Condition::Disabled) return true;
  if (condition == Condition::Chosen) return hasRows || kind == "CheckBox" || kind == "OptionButton";
  return isText || hasRows;
}

// What differs between the two desktops, empty when nothing does.
std::string Play(const std::string& kind, Condition condition, const std::string& script, int& deeds) {
  PlainBench plain(kind, condition);
  WindowBench windowed(kind, condition);
  // To the control, as the Tab key does.
  std::vector<std::string> words = WordsOf(script);
  words.insert(words.begin(), "Tab");
  for (const std::string& deed : words) {
    const bool done = plain.player.Do(deed);
    if (done != windowed.player.Do(deed)) return "'" + deed + "' can be done on one desktop alone";
    windowed.Settle();
    if (!done) return "";
    ++deeds;
    const std::string here = plain.player.Seen();
    const std::string there = windowed.player.Seen();
    if (here != there) return "after '" + deed + "'\n  plain   " + here + "\n  windows " + there;
  }
  return "";
}

class Conformance : public testing::TestWithParam<const char*> {};

TEST_P(Conformance, BothDesktopsDoTheSame) {
  const std::string kind = GetParam();
  int cases = 0;
  int deeds = 0;
  for (const Condition condition : kConditions) {
    if (!CanBe(kind, condition)) continue;
    for (const char* script : kScripts) {
      ++cases;
      const std::string difference = Play(kind, condition, script, deeds);
      if (!difference.empty())
        ADD_FAILURE() << kind << ", " << NameOf(condition) << ", " << script << ": " << difference;
    }
  }
  RecordProperty("cases", cases);
  std::cout << kind << ": " << cases << " cases of control, condition and keys, " << deeds
            << " deeds on each desktop\n";
}

INSTANTIATE_TEST_SUITE_P(Kinds, Conformance, testing::ValuesIn(kKinds), [](const auto& kind) {
  std::string name = kind.param;
  std::erase(name, '-');
  return name;
});

}  // namespace
}  // namespace lantos::test
