#include "ui/Typing.h"

#include <algorithm>

#include "frame/Text.h"

namespace lantos::ui {

namespace {

bool IsBetweenWords(char character) { return character == ' ' || character == '\n'; }

std::size_t WordBefore(const std::string& text, std::size_t at) {
  while (at > 0 && IsBetweenWords(text[at - 1])) --at;
  while (at > 0 && !IsBetweenWords(text[at - 1])) --at;
  return at;
}

std::size_t WordBehind(const std::string& text, std::size_t at) {
  while (at < text.size() && !IsBetweenWords(text[at])) ++at;
  while (at < text.size() && IsBetweenWords(text[at])) ++at;
  return at;
}

std::size_t LineStart(const std::string& text, std::size_t at) {
  const std::size_t end = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
  return end == std::string::npos ? 0 : end + 1;
}

std::size_t LineEnd(const std::string& text, std::size_t at) { return std::min(text.find('\n', at), text.size()); }

// The place in the line above or below; where there is none, the place itself.
std::size_t PlaceInNextLine(const std::string& text, std::size_t at, std::size_t column, bool below) {
  if (below) {
    const std::size_t end = LineEnd(text, at);
    return end == text.size() ? at : std::min(end + 1 + column, LineEnd(text, end + 1));
  }
  const std::size_t start = LineStart(text, at);
  return start == 0 ? at : std::min(LineStart(text, start - 1) + column, start - 1);
}

// As a limit counts it: a line end is two characters inside.
std::size_t LengthOf(std::string_view shown) {
  return shown.size() + static_cast<std::size_t>(std::count(shown.begin(), shown.end(), '\n'));
}

// The character of a key, NUL when it has none.
char CharacterOf(const KeyPress& key) {
  if (key.control || key.alt) return '\0';
  if (key.key == "Space") return ' ';
  if (key.key.size() != 1) return '\0';
  return key.shift ? key.key[0] : ToLower(key.key[0]);
}

}  // namespace

void Typing::PutCaret(std::size_t at) {
  const std::size_t place = std::min(at, Shown().size());
  if (caret_ != place) last_ = Change::None;
  caret_ = anchor_ = place;
}

void Typing::MarkAll() {
  anchor_ = 0;
  caret_ = Shown().size();
  column_.reset();
}

void Typing::EnterField() {
  MarkAll();
  if (Rules().multiLine) anchor_ = caret_;
}

void Typing::TextWasSet(bool isInField) {
  PutCaret(isInField ? caret_ : 0);
  undo_.clear();
  redo_.clear();
  last_ = Change::None;
}

// Of what stays when something takes the place of what is marked.
std::size_t Typing::LengthLeft() const {
  const std::string shown = Shown();
  return LengthOf(shown) - LengthOf(std::string_view(shown).substr(From(), To() - From()));
}

void Typing::TypeCharacter(char character) {
  const FieldRules rules = Rules();
  if (rules.locked || (character == '\n' && !rules.multiLine)) return;
  character = Admit(character);
  if (character == '\0') return;
  const std::string_view typed(&character, 1);
  if (rules.maxLength != 0 && LengthLeft() + LengthOf(typed) > rules.maxLength) return;
  Replace(From(), To(), typed, Change::Insert);
}

bool Typing::PressTextKey(const KeyPress& key, std::string& clipboard) {
  if (const char character = CharacterOf(key); character != '\0') {
    TypeCharacter(character);
    return true;
  }
  return PressEditKey(key) || PressClipboardKey(key, clipboard) || PressMoveKey(key);
}

bool Typing::PressEditKey(const KeyPress& key) {
  const bool back = key.key == "Backspace";
  if (key.alt || (!back && key.key != "Delete") || (!back && key.shift)) return false;
  if (Rules().locked) return true;
  const std::string shown = Shown();
  if (caret_ != anchor_) {
    Replace(From(), To(), "", Change::Other);
  } else if (back) {
    Replace(key.control ? WordToTheLeft(shown) : caret_ - std::min<std::size_t>(caret_, 1), caret_, "",
            key.control ? Change::Other : Change::Remove);
  } else {
    Replace(caret_, key.control ? WordToTheRight(shown) : std::min(caret_ + 1, shown.size()), "",
            key.control ? Change::Other : Change::Delete);
  }
  return true;
}

bool Typing::PressClipboardKey(const KeyPress& key, std::string& clipboard) {
  const auto shifted = [&](std::string_view name) { return key.shift && !key.control && !key.alt && key.key == name; };
  const bool copies = key.IsControl("C") || key.IsControl("Insert");
  const bool cuts = key.IsControl("X") || shifted("Delete");
  if (copies || cuts) {
    const FieldRules rules = Rules();
    if (caret_ == anchor_) return true;
    if (!rules.secret) clipboard = Shown().substr(From(), To() - From());
    if (cuts && !rules.locked) Replace(From(), To(), "", Change::Other);
  } else if (key.IsControl("V") || shifted("Insert")) {
    if (!Rules().locked) Paste(clipboard);
  } else if (key.IsControl("Z")) {
    Step(undo_, redo_);
  } else if (key.IsControl("Y") || (key.control && key.shift && !key.alt && key.key == "Z")) {
    Step(redo_, undo_);
  } else if (key.IsControl("A")) {
    MarkAll();
  } else {
    return false;
  }
  return true;
}

bool Typing::PressMoveKey(const KeyPress& key) {
  if (key.alt) return false;
  const std::string shown = Shown();
  const bool vertical = key.key == "Up" || key.key == "Down" || key.key == "PgUp" || key.key == "PgDn";
  if (!vertical) column_.reset();
  // In a line they lead nowhere.
  if (key.control && !Rules().multiLine && (key.key == "Home" || key.key == "End")) return true;
  const std::optional<std::size_t> place = PlaceBy(key, shown);
  if (!place) return false;
  MoveTo(*place, key.shift);
  return true;
}

// Where a key leads to; none when it is no key of movement.
std::optional<std::size_t> Typing::PlaceBy(const KeyPress& key, const std::string& shown) {
  const bool page = Rules().multiLine;
  const bool leaves = !key.shift && caret_ != anchor_ && !key.control;
  if (key.key == "Left") {
    if (key.control) return WordToTheLeft(shown);
    return leaves && page ? From() : caret_ - std::min<std::size_t>(caret_, 1);
  }
  if (key.key == "Right") {
    if (key.control) return WordToTheRight(shown);
    return leaves && page ? To() : std::min(caret_ + 1, shown.size());
  }
  if (key.key == "Home") return key.control || !page ? 0 : LineStart(shown, caret_);
  if (key.key == "End") return key.control || !page ? shown.size() : LineEnd(shown, caret_);
  return page && !key.control ? PlaceInOtherLine(key, shown) : std::nullopt;
}

// Up and Down go to the line above or below, PgUp and PgDn to the first and the last.
std::optional<std::size_t> Typing::PlaceInOtherLine(const KeyPress& key, const std::string& shown) {
  const bool below = key.key == "Down" || key.key == "PgDn";
  const bool byPage = key.key == "PgUp" || key.key == "PgDn";
  if (!below && !byPage && key.key != "Up") return std::nullopt;
  if (!column_) column_ = caret_ - LineStart(shown, caret_);
  std::size_t place = PlaceInNextLine(shown, caret_, *column_, below);
  // With no line there, marking takes what is left of this one.
  if (place == caret_ && key.shift) return below ? shown.size() : 0;
  for (std::size_t last = caret_; byPage && place != last;) {
    last = place;
    place = PlaceInNextLine(shown, place, *column_, below);
  }
  return place;
}

// Where a word begins isn't told of a secret: its ends serve.
std::size_t Typing::WordToTheLeft(const std::string& shown) const {
  const FieldRules rules = Rules();
  if (!rules.secret) return WordBefore(shown, caret_);
  return rules.locked ? caret_ : 0;
}

std::size_t Typing::WordToTheRight(const std::string& shown) const {
  return Rules().secret ? shown.size() : WordBehind(shown, caret_);
}

void Typing::MoveTo(std::size_t at, bool marking) {
  if (at != caret_) last_ = Change::None;
  caret_ = at;
  if (!marking) anchor_ = at;
}

// What is done in one go is undone in one go: a run of characters typed, or taken away to one side.
void Typing::Replace(std::size_t from, std::size_t to, std::string_view with, Change change) {
  if (from == to && with.empty()) return;
  std::string shown = Shown();
  const bool goesOn = change == last_ && change != Change::Other && caret_ == anchor_;
  if (!goesOn) undo_.push_back({shown, caret_, anchor_});
  // In a page the caret comes back behind what was taken away.
  if (change == Change::Delete && Rules().multiLine) undo_.back().caret = undo_.back().anchor += to - from;
  redo_.clear();
  last_ = change;
  column_.reset();
  shown.replace(from, to - from, with);
  caret_ = anchor_ = from + with.size();
  PutTyped(std::move(shown));
}

void Typing::Paste(std::string_view text) {
  const FieldRules rules = Rules();
  std::string pasted;
  for (const char character : text) {
    if (character == '\n' && !rules.multiLine) {
      pasted += ' ';
    } else {
      pasted += rules.capitals ? ToUpper(character) : character;
    }
  }
  const std::size_t left = LengthLeft();
  while (rules.maxLength != 0 && !pasted.empty() && left + LengthOf(pasted) > rules.maxLength) pasted.pop_back();
  Replace(From(), To(), pasted, Change::Other);
}

// The way back in a secret takes all of it: nobody sees what would come back.
void Typing::Step(std::vector<State>& from, std::vector<State>& to) {
  const FieldRules rules = Rules();
  if (rules.locked || from.empty()) return;
  if (rules.secret) {
    TextWasSet(false);
    return PutTyped("");
  }
  const State state = std::move(from.back());
  from.pop_back();
  to.push_back({Shown(), caret_, anchor_});
  caret_ = state.caret;
  anchor_ = state.anchor;
  last_ = Change::None;
  PutTyped(state.shown);
}

}  // namespace lantos::ui
