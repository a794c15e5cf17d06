#include "ui/Desktop.h"

#include <fmt/format.h>

#include <algorithm>

#include "frame/PlainWords.h"
#include "ui/Form.h"

namespace lantos::ui {

std::string ToHex(Color color) { return fmt::format("#{:02x}{:02x}{:02x}", color.red, color.green, color.blue); }

std::vector<Answer> ButtonsOf(const Box& box) {
  switch (box.buttons) {
    case Buttons::OkCancel:
      return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo:
      return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
    case Buttons::RetryCancel:
      return {Answer::Retry, Answer::Cancel};
    case Buttons::Ok:
      break;
  }
  return {Answer::Ok};
}

std::string_view NameOf(Answer answer) {
  constexpr std::string_view names[] = {"OK", "Cancel", "Yes", "No", "Retry"};
  return names[static_cast<std::size_t>(answer)];
}

std::string_view NameOf(Icon icon) {
  constexpr std::string_view names[] = {"none", "critical", "question", "exclamation", "information"};
  return names[static_cast<std::size_t>(icon)];
}

std::string WithLineFeeds(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') {
      result += text[i];
      continue;
    }
    result += '\n';
    if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
  }
  return result;
}

void Desktop::EndEvent(const std::exception& error) {
  if (logFailure) logFailure(error.what());
  ReportFailure(WordsFor(error));
}

Form* Desktop::FindForm(std::string_view name) const {
  const auto found = std::find_if(forms_.rbegin(), forms_.rend(), [&](Form* form) { return form->Name() == name; });
  return found == forms_.rend() ? nullptr : *found;
}

void Desktop::Remember(Form& form) {
  Forget(form);
  forms_.push_back(&form);
}

void Desktop::Forget(Form& form) { std::erase(forms_, &form); }

Answer Desktop::Ask(std::string text, std::string title, Buttons buttons, Icon icon) {
  struct Up {
    explicit Up(int& boxes) : boxes(boxes) { ++boxes; }
    ~Up() { --boxes; }
    int& boxes;
  };
  const Up up(asking_);
  return Show(Box{std::move(text), std::move(title), buttons, icon, 0});
}

}  // namespace lantos::ui
