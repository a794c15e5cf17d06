#pragma once

#include <deque>
#include <string>

#include "ui/Form.h"

namespace lantos {

// Boxes that want a number. One whose text isn't a number is red while it is so, and its tool tip says why: nothing
// becomes 0 in silence. An empty box is nobody's number, and not red.
class NumberFields {
 public:
  explicit NumberFields(ui::Form& form) : form_(form) {}
  NumberFields(const NumberFields&) = delete;

  // How the screen reads the box: by what the text begins with, so that a comma or letter would cut the number short,
  // or as a whole, commas between the thousands included.
  enum class Read { ByItsBeginning, Whole };
  // name is what the messages call the box. Wired after the screen's own procedures, which run behind.
  void Add(ui::TextBox& box, std::string name, Read read = Read::ByItsBeginning);

  // Leaving a box brings its number into the form "0.00". What is no number stays as it is, in red, ...
  void FormatOnLeaving(ui::TextBox& box);
  // ... or what it begins with is taken all the same, and the box stays red until the person has typed anew or has
  // been told.
  void TakeOnLeaving(ui::TextBox& box);
  // The same when it is saved: AreNumbers puts what the text begins with into the box and tells of it, and the next
  // time that counts. A box without either is refused until its text is a number. TakeOnLeaving does this too.
  void TakeOnSaving(ui::TextBox& box) { FieldOf(box).isTaken = true; }

  bool IsNumber(const ui::TextBox& box) const;
  // Tells of the first box in use that is red, and goes there. True when none is.
  bool AreNumbers();

 private:
  struct Field {
    ui::TextBox& box;
    std::string name;
    Read read;
    bool red = false;
    bool isTaken = false;  // what it begins with will do
    std::string taken;     // the text that was no number, once it was taken for one
    std::string toolTip;
  };
  Field& FieldOf(const ui::TextBox& box);
  static bool Reads(const std::string& text, Read read);
  static void Take(Field& field);
  static void Judge(Field& field);
  static void ShowRed(Field& field, const std::string& why);
  static void ShowPlain(Field& field);

  ui::Form& form_;
  std::deque<Field> fields_;
};

}  // namespace lantos
