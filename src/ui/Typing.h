#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/Key.h"

namespace lantos::ui {

// The person's hand in a text: the caret, what is marked, and the way back. A position is the count of characters
// before it as they are shown: a line end is one, whatever it is inside. Fields of a window system have all this
// themselves; of theirs only the text comes in here.
class Typing {
 public:
  virtual ~Typing() = default;

  std::size_t Caret() const { return caret_; }
  void PutCaret(std::size_t at);  // past the end is the end; nothing is marked then
  void MarkAll();                 // the caret is behind the last character
  // The focus has come: a line is marked from end to end, a page goes on behind its last character.
  void EnterField();
  void LeaveField() { anchor_ = caret_; }

  // Each as one key of the person, where the caret is, in place of what is marked. A text that is full, or a character
  // that the field doesn't take, changes nothing.
  void TypeCharacter(char character);
  // The keys of a text: characters, Backspace and Delete, arrows, Home and End, with Shift they mark, with Ctrl they go
  // by words; Ctrl+A, C, X, V, Z, Y and their older names. True when the key was one of them.
  bool PressTextKey(const KeyPress& key, std::string& clipboard);

 protected:
  struct FieldRules {
    std::size_t maxLength = 0;  // 0: no limit
    bool locked = false;
    bool multiLine = false;
    bool secret = false;    // nothing of it can be copied
    bool capitals = false;  // what is pasted becomes capitals
  };
  virtual FieldRules Rules() const = 0;
  virtual std::string Shown() const = 0;  // line ends as "\n"
  // What a character becomes on its way in; NUL: it doesn't go in.
  virtual char Admit(char character) { return character; }
  // Takes the text as it came out of the person's key, and tells the program.
  virtual void PutTyped(std::string shown) = 0;

  // The program has set the text: the caret of a field that the person is in stays where it was, if there is such a
  // place yet. There is no way back behind that.
  void TextWasSet(bool isInField);

 private:
  enum class Change { None, Insert, Remove, Delete, Other };
  struct State {
    std::string shown;
    std::size_t caret, anchor;
  };

  std::size_t From() const { return caret_ < anchor_ ? caret_ : anchor_; }
  std::size_t To() const { return caret_ < anchor_ ? anchor_ : caret_; }
  std::size_t LengthLeft() const;
  bool PressEditKey(const KeyPress& key);
  bool PressClipboardKey(const KeyPress& key, std::string& clipboard);
  bool PressMoveKey(const KeyPress& key);
  std::optional<std::size_t> PlaceBy(const KeyPress& key, const std::string& shown);
  std::optional<std::size_t> PlaceInOtherLine(const KeyPress& key, const std::string& shown);
  std::size_t WordToTheLeft(const std::string& shown) const;
  std::size_t WordToTheRight(const std::string& shown) const;
  void MoveTo(std::size_t at, bool marking);
  void Replace(std::size_t from, std::size_t to, std::string_view with, Change change);
  void Paste(std::string_view text);
  void Step(std::vector<State>& from, std::vector<State>& to);

  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;             // the other end of what is marked
  std::optional<std::size_t> column_;  // kept while going up and down
  std::vector<State> undo_;
  std::vector<State> redo_;
  Change last_ = Change::None;
};

}  // namespace lantos::ui
