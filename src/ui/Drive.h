#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "frame/Types.h"
#include "ui/Desktop.h"
#include "ui/Form.h"
#include "ui/Report.h"

// Where a desktop and whoever drives it from outside meet: the desktop hands over each wait for the person, and offers
// hands and eyes for its controls.
namespace lantos::ui {

// Takes the place of the person: asked whenever the program waits for one.
class Person {
 public:
  virtual ~Person() = default;
  // Each returns when over() is true.
  virtual void AtForm(Form& form, const std::function<bool()>& over) = 0;
  virtual void AtBox(const Box& box, const std::function<void(Answer)>& press, const std::function<bool()>& over) = 0;
  // choose(nullptr) dismisses the menu.
  virtual void AtPopup(MenuItem& menu, const std::function<void(MenuItem*)>& choose,
                       const std::function<bool()>& over) = 0;

  // A report on show: print() prints it and leaves it there, close() ends it.
  struct PreviewHands {
    std::function<void()> print;
    std::function<void()> close;
  };
  virtual void AtPreview(const Report& report, const PreviewHands& hands, const std::function<bool()>& over) = 0;
  // The printer dialog: answer(true) prints.
  virtual void AtPrinter(const Report& report, const std::function<void(bool)>& answer,
                         const std::function<bool()>& over) = 0;

  // The form is at work. Whoever has asked already for its end, by the button, Esc or the close box, gets it; all else
  // that was asked for waits until the work is done.
  virtual void AtWork(Form& /*form*/, Button& /*stop*/) {}

  // What happens without waiting for anybody.
  virtual void NoteBeep() = 0;
  virtual void NoteStatus(std::string_view text) = 0;
  virtual void NoteShell(std::string_view path) = 0;
  virtual void NoteFailure(std::string_view text) = 0;
  // The pdf is empty where there are no real windows.
  virtual void NotePrinted(const Report& report, const std::filesystem::path& text,
                           const std::filesystem::path& pdf) = 0;
  // The last word: the process is about to end.
  virtual void NoteEnd(int code) = 0;
};

// What can be read off a control.
struct ControlState {
  bool visible = false;
  bool enabled = false;
  std::optional<std::string> text;
  std::optional<std::string> caption;
  std::optional<bool> checked;
  std::optional<bool> locked;
  std::optional<DaySerial> date;
  std::optional<int> value;
  std::optional<std::vector<ListRow>> rows;
  std::optional<std::vector<GridRow>> cells;
  std::optional<int> selected;
  std::string name;          // as a screen reader says it
  std::optional<int> caret;  // characters before it, a line end being one
};
// From the plain control itself.
ControlState ReadControl(const Control& control);

// Whether a character comes from one key that doesn't lead elsewhere, as Tab does.
inline bool CanBeTyped(char character) { return static_cast<unsigned char>(character) >= ' ' && character != 0x7f; }

// The person's hand at a desktop's controls. The control has been found to be on the topmost form, shown, enabled, and
// to have the row: what is left is to do it. Each returns an error text, empty when it was done.
class Hand {
 public:
  virtual ~Hand() = default;
  virtual std::string Click(Control& control, MouseButton button) = 0;
  virtual std::string DoubleClick(Control& control) = 0;
  // Rows of lists, combos, grids. A click on a row selects it and fires what a click fires.
  virtual std::string ClickRow(Control& control, int row, MouseButton button) = 0;
  virtual std::string DoubleClickRow(Control& control, int row) = 0;
  virtual std::string ClickHeading(Grid& grid, int column) = 0;
  virtual std::string SelectRows(Control& control, const std::vector<int>& rows) = 0;  // empty selects nothing
  virtual std::string Check(Control& control, bool value) = 0;
  virtual std::string CheckRow(ListBox& list, int row, bool value) = 0;
  virtual std::string Type(Control& control, const std::string& text) = 0;
  // The caret behind that many characters, which the text has.
  virtual std::string Insert(Control& control, const std::string& text, int at) = 0;
  virtual std::string Leave(Form& form) = 0;
  virtual std::string PressKey(Form& form, const KeyPress& key) = 0;
  virtual std::string Pick(Control& control, DaySerial day, bool twice) = 0;
  virtual std::string ChooseMenu(Form& form, MenuItem& item) = 0;
  virtual std::string ClickForm(Form& form, MouseButton button) = 0;
  virtual std::string Close(Form& form) = 0;
  virtual ControlState Read(const Control& control) = 0;
  virtual std::string Screenshot(Form* form, const std::filesystem::path& to) = 0;
  // Lets the window system catch up before the next answer is written.
  virtual void Settle() {}
};

}  // namespace lantos::ui
