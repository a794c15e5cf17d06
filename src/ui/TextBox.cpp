#include "frame/Text.h"
#include "ui/Controls.h"
#include "ui/Desktop.h"
#include "ui/Form.h"

namespace lantos::ui {

void TextBox::SetText(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
  TextWasSet(HasFocus());
  Changed(Aspect::Text);
  if (OnChange) OnChange();
}

void TextBox::SetLocked(bool locked) {
  if (locked_ == locked) return;
  locked_ = locked;
  Changed(Aspect::Enabled);
}

void TextBox::DoType(std::string_view text) {
  Owner().Run([&] {
    SetText("");
    DoInsert(text);
  });
}

void TextBox::DoInsert(std::string_view text) {
  Owner().Run([&] {
    for (const char character : WithLineFeeds(text)) TypeCharacter(character);
  });
}

void TextBox::DoEdit(std::string text) {
  if (text_ == text) return;
  Owner().Run([&] { SetText(std::move(text)); });
}

std::string TextBox::Shown() const { return multiLine_ ? WithLineFeeds(text_) : text_; }

char TextBox::Admit(char character) {
  if (upperCase_) character = ToUpper(character);
  if (OnKeyPress) OnKeyPress(character);
  return character;
}

// A line end goes in as one key and comes out as two characters.
void TextBox::PutTyped(std::string shown) {
  std::string text;
  for (const char character : shown) {
    if (character == '\n') text += '\r';
    text += character;
  }
  if (text_ == text) return;
  text_ = std::move(text);
  Changed(Aspect::Text);
  if (OnChange) OnChange();
}

}  // namespace lantos::ui
