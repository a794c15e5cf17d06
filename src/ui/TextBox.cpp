#include "frame/Text.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace lantos::ui {

void TextBox::SetText(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
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
    for (char c : WithLineFeeds(text)) {
      if (maxLength_ != 0 && text_.size() >= maxLength_) break;
      if (c == '\n' && !multiLine_) continue;
      if (upperCase_) c = ToUpper(c);
      if (OnKeyPress) OnKeyPress(c);
      if (c == '\0') continue;
      // A line end goes in as one key and comes out as two characters.
      SetText(text_ + (c == '\n' ? std::string("\r\n") : std::string(1, c)));
    }
  });
}

void TextBox::DoEdit(std::string text) {
  if (text_ == text) return;
  Owner().Run([&] { SetText(std::move(text)); });
}

}  // namespace lantos::ui
