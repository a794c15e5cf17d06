#include "faults/Person.h"

#include <utility>

#include "frame/PlainWords.h"

namespace lantos::test {

namespace {

constexpr int kMostBoxes = 40;
constexpr int kMostTries = 3;

}  // namespace

Person::Person(Deed& deed, Trouble::Person manner, std::function<void()> mend)
    : deed_(deed), desktop_(deed.Shop().desktop), manner_(manner), mend_(std::move(mend)) {
  desktop_.failuresExpected = true;
  failuresHeard_ = desktop_.failures.size();
  desktop_.otherwise = [this](const ui::Box& box) { return Answer(box); };
  ArmForms();
}

// The script for the next form is used up, since a desktop complains of what is left of its script.
Person::~Person() {
  over_ = true;
  ui::Form nobody(desktop_, "frmNobody", "Nobody");
  desktop_.RunModal(nobody);
  desktop_.otherwise = nullptr;
}

void Person::ArmForms() {
  desktop_.WillUse([this](ui::Form& form) {
    if (over_) return;
    ArmForms();
    Use(form);
  });
}

// What isn't caught by a form's own guard is shown by the one around the main window's procedures.
void Person::Do() {
  deed_.used.clear();
  try {
    deed_.Do();
  } catch (const ProcessEnded&) {
    Hear("the program ended");
  } catch (const std::exception& error) {
    Hear(WordsFor(error));
  }
  HearFailures();
}

ui::Answer Person::Answer(const ui::Box& box) {
  if (++boxes_ > kMostBoxes) throw Hung{};
  const std::vector<ui::Answer> buttons = ui::ButtonsOf(box);
  for (const auto& [beginning, answer] : deed_.answers) {
    if (box.text.starts_with(beginning)) return answer;
  }
  if (leaving_) return buttons.front();
  Hear(box.text);
  return manner_ == Trouble::Person::Retries ? buttons.front() : buttons.back();
}

void Person::Use(ui::Form& form) {
  const auto deeds = deed_.forms.find(form.Name());
  if (deeds != deed_.forms.end()) deeds->second(form);
  HearFailures();
  for (int i = 0; i < kMostTries && form.Visible() && manner_ == Trouble::Person::Retries && told_; ++i) {
    form.PressKey(ui::ParseKey("F10"));
    HearFailures();
  }
  if (form.Visible()) Leave(form);
}

void Person::Leave(ui::Form& form) {
  const bool before = std::exchange(leaving_, true);
  form.PressKey(ui::ParseKey("Esc"));
  HearFailures();
  if (form.Visible()) form.Hide();
  leaving_ = before;
}

void Person::Hear(const std::string& text) {
  told_ = true;
  heard_ += (heard_.empty() ? "" : " // ") + text;
  mend_();
}

void Person::HearFailures() {
  for (; failuresHeard_ < desktop_.failures.size(); ++failuresHeard_) Hear(desktop_.failures[failuresHeard_]);
}

}  // namespace lantos::test
